// A host that analyses a picture again and again and does nothing else: prints the milliseconds of one call.

#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <QElapsedTimer>

#include <algorithm>
#include <iostream>
#include <vector>

int main(int argc, char** argv)
{
    const QString path = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    const QImage picture = QImage(path).convertToFormat(QImage::Format_RGB32);
    if (picture.isNull())
        return 1;
    constexpr int warmUps = 5;
    constexpr int calls = 41;
    VXSalienzMixer mixer { QSize() };
    std::vector<qint64> nanoseconds;
    for (int i = 0; i < warmUps + calls; ++i) {
        QElapsedTimer timer;
        timer.start();
        mixer.analyze(picture);
        if (i >= warmUps)
            nanoseconds.push_back(timer.nsecsElapsed());
    }
    std::sort(nanoseconds.begin(), nanoseconds.end());
    std::cout << static_cast<double>(nanoseconds[calls / 2]) / 1e6 << '\n';
}
