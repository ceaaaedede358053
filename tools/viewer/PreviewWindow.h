#pragma once

#include <VXCrop/VXCrop.h>

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QMainWindow>

namespace viewer {

/// A window that shows a picture with its salience map over it and the crop that keeps most of the map.
class PreviewWindow : public QMainWindow {
public:
    PreviewWindow();

    /// Shows a picture file; says in the status bar what is wrong when it cannot.
    void open(const QString& path);

    /// The crop of the shape that is selected, in picture pixels; null when there is no picture.
    QRect crop() const;

    QComboBox& shapes() { return shapeBox; }

private:
    void chooseFile();
    void refresh();
    void resizeEvent(QResizeEvent* event) override;

    QImage picture;
    VXCrop analysis;
    QComboBox shapeBox;
    QLabel view;
};

} // namespace viewer
