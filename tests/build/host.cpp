// A host program that has the library's sources compiled into it.

#include "VXSalienzMaximizerHorizontal.h"
#include "VXSalienzMixer.h"

#include <iostream>

int main()
{
    QImage picture(300, 100, QImage::Format_RGB32);
    picture.fill(Qt::gray);

    VXSalienzMixer mixer(QSize(150, 150));
    const QImage map = mixer.analyze(picture);
    const int start = VXSalienzMaximizerHorizontal().startOfBestRange(map, 50);

    std::cout << "map " << map.width() << " x " << map.height() << ", start " << start << '\n';
    return map.size() == QSize(150, 50) && start > 0 && start < 100 ? 0 : 1;
}
