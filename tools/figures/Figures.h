#pragma once

#include <QImage>
#include <QString>
#include <QVector>

namespace figures {

/// A picture of the docs, named like its file without the suffix.
struct Figure {
    QString name;
    QImage image;
};

/// Draws all of them: the overlay in the README, the gallery of what each method sees, and the maps of
/// the histogram method with each of its settings changed.
QVector<Figure> drawFigures();

} // namespace figures
