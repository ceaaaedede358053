#pragma once

#include <VXCrop/VXCrop.h>

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QMainWindow>

namespace viewer {

/// A window that shows a picture overlaid with its salience map and the chosen crop.
class PreviewWindow : public QMainWindow {
public:
    PreviewWindow();

    /// Shows the picture in a file, or an error in the status bar.
    void open(const QString& path);

    /// The crop of the selected shape, in picture pixels; null when no picture is open.
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
