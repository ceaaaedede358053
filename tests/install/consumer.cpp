// A host program that knows the library only as it is installed.
#include "cropping.h"

#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <iostream>

int main()
{
    const QRect square = cropping::squareOf(cropping::picture());
    std::cout << "keeps columns " << square.left() << " to " << square.right() << '\n';
    const QImage map = VXSalienzMixer(QSize(64, 48)).analyze(cropping::picture());
    return cropping::isRight(square) && map.size() == QSize(64, 32) ? 0 : 1;
}
