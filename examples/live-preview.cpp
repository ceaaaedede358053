// live-preview PICTURE [SNAPSHOT]: a window that shows the best strip of a picture while its width is
// changed; with SNAPSHOT it saves what it shows and ends.
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <QApplication>
#include <QPainter>
#include <QSlider>
#include <QVBoxLayout>
#include <QWidget>

#include <algorithm>
#include <iostream>

namespace {

// Draws the picture, and dims what a strip of a given width leaves out.
class StripView : public QWidget {
public:
    explicit StripView(const QImage& shown)
        : picture(shown)
        , runningSums(runningSumsOf(VXSalienzMixer(QSize(640, 480)).analyze(shown)))
    {
        setMinimumSize(320, 240);
    }

    // The analysis is done: only the search for the start is repeated.
    void setPercent(int percent)
    {
        length = std::max(1, runningSums.size() * percent / 100);
        start = VXSalienzMaximizerHorizontal().bestRange(runningSums, length);
        update();
    }

private:
    static QList<long long> runningSumsOf(const QImage& map)
    {
        const VXSalienzMaximizerHorizontal maximizer;
        return maximizer.conglumerate(maximizer.sums(map));
    }

    void paintEvent(QPaintEvent* /*event*/) override
    {
        const QSize size = picture.size().scaled(this->size(), Qt::KeepAspectRatio);
        const auto column
            = [&](int position) { return position * size.width() / runningSums.size(); };
        QPainter painter(this);
        painter.drawImage(QRect(QPoint(), size), picture);
        const QColor shade(0, 0, 0, 160);
        const int right = column(start + length);
        painter.fillRect(0, 0, column(start), size.height(), shade);
        painter.fillRect(right, 0, size.width() - right, size.height(), shade);
    }

    QImage picture;
    QList<long long> runningSums; // of the map's columns
    int start = 0;
    int length = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QImage picture(QApplication::arguments().value(1));
    if (picture.isNull()) {
        std::cerr << "usage: live-preview PICTURE [SNAPSHOT]\n";
        return 64;
    }
    QWidget window;
    auto* const view = new StripView(picture);
    auto* const slider = new QSlider(Qt::Horizontal);
    slider->setRange(1, 100);
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(view, 1);
    layout->addWidget(slider);
    QObject::connect(slider, &QSlider::valueChanged, view, &StripView::setPercent);
    slider->setValue(50);

    window.resize(800, 600);
    window.show();
    if (argc > 2)
        return window.grab().save(QApplication::arguments().at(2)) ? 0 : 74;
    return QApplication::exec();
}
