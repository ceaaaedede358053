#pragma once

#include <QImage>
#include <QString>
#include <QVector>

namespace figures {

/// A picture of the docs, called as its file is without the suffix.
struct Figure {
    QString name;
    QImage image;
};

/// Draws all of them: the overlay of the README, the gallery of what each method sees, and the maps of
/// the histogram method for each of its settings.
QVector<Figure> drawFigures();

} // namespace figures
