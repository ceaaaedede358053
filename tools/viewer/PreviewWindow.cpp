#include "PreviewWindow.h"

#include "host/HostError.h"
#include "host/crop/Analysis.h"
#include "host/crop/Overlay.h"

#include <QFileDialog>
#include <QStatusBar>
#include <QToolBar>

#include <utility>

namespace viewer {

PreviewWindow::PreviewWindow(std::shared_ptr<host::FaceDetector> faceDetector)
    : detector(std::move(faceDetector))
{
    setWindowTitle(QStringLiteral("Salience"));
    for (const QSize& ratio :
        { QSize(1, 1), QSize(4, 5), QSize(3, 2), QSize(16, 9), QSize(9, 16), QSize(3, 1) })
        shapeBox.addItem(QStringLiteral("%1:%2").arg(ratio.width()).arg(ratio.height()), ratio);
    view.setAlignment(Qt::AlignCenter);
    view.setMinimumSize(320, 240);
    view.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored); // regardless of its pixmap
    setCentralWidget(&view);

    QToolBar* const bar = addToolBar(QStringLiteral("Picture"));
    bar->addAction(QStringLiteral("Open…"), this, &PreviewWindow::chooseFile);
    bar->addWidget(&shapeBox);
    connect(&shapeBox, &QComboBox::currentTextChanged, this, &PreviewWindow::refresh);
}

void PreviewWindow::open(const QString& path)
try {
    const host::AnalysisRules rules { VXCropSettings::photo(), {} };
    host::Analysis opened(path, rules);
    analysis = opened.run();
    picture = opened.picture().readAll();
    detection = detector ? detector->detect(path, rules.reading.mostSeconds) : host::Detection();
    setWindowTitle(path);
    refresh();
} catch (const host::HostError& error) {
    statusBar()->showMessage(QString::fromUtf8(error.what()));
}

QRect PreviewWindow::crop() const
{
    if (picture.isNull())
        return {};
    return analysis.window(shapeBox.currentData().toSize(), constraints()).window;
}

VXCropConstraints PreviewWindow::constraints() const
{
    VXCropConstraints constraints;
    constraints.faces = host::boxesOf(detection.faces);
    return constraints;
}

void PreviewWindow::chooseFile()
{
    const QString path = QFileDialog::getOpenFileName(this);
    if (!path.isEmpty())
        open(path);
}

void PreviewWindow::refresh()
{
    if (picture.isNull())
        return;
    const QRect window = crop();
    const QImage overlay = host::drawOverlay(picture, analysis.map(), window, constraints());
    view.setPixmap(QPixmap::fromImage(
        overlay.scaled(view.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    const QString kept = QStringLiteral("keeps %1 × %2 pixels from %3, %4")
                             .arg(window.width())
                             .arg(window.height())
                             .arg(window.x())
                             .arg(window.y());
    statusBar()->showMessage(
        detection.problem.isEmpty() ? kept : QStringLiteral("%1; %2").arg(kept, detection.problem));
}

void PreviewWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    refresh();
}

} // namespace viewer
