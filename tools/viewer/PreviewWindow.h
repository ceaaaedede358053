#pragma once

#include "host/detector/FaceDetector.h"

#include <VXCrop/VXCrop.h>

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QMainWindow>

#include <memory>

namespace viewer {

/// A window that shows a picture overlaid with its salience map, its faces and the chosen crop.
class PreviewWindow : public QMainWindow {
public:
    /// \param faceDetector null: faces are not looked for.
    explicit PreviewWindow(std::shared_ptr<host::FaceDetector> faceDetector = {});

    /// Shows the picture in a file, or an error in the status bar.
    void open(const QString& path);

    /// The crop of the selected shape, in picture pixels; null when no picture is open.
    QRect crop() const;

    QComboBox& shapes() { return shapeBox; }

private:
    VXCropConstraints constraints() const;
    void chooseFile();
    void refresh();
    void resizeEvent(QResizeEvent* event) override;

    std::shared_ptr<host::FaceDetector> detector;
    QImage picture;
    VXCrop analysis;
    host::Detection detection;
    QComboBox shapeBox;
    QLabel view;
};

} // namespace viewer
