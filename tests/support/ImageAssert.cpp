#include "ImageAssert.h"

#include <ios>
#include <ostream>
#include <sstream>

namespace support {

namespace {

constexpr int pixelsPrinted = 5;

QRgb pixelOf(const QImage& image, int x, int y)
{
    if (image.depth() == 32)
        return reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
    return image.pixel(x, y);
}

} // namespace

testing::AssertionResult sameImage(const QImage& expected, const QImage& actual)
{
    if (expected.size() != actual.size())
        return testing::AssertionFailure()
            << "expected " << expected.width() << " x " << expected.height() << " pixels, not "
            << actual.width() << " x " << actual.height();
    if (expected.format() != actual.format())
        return testing::AssertionFailure()
            << "expected format " << expected.format() << ", not " << actual.format();

    std::ostringstream differences;
    differences << std::hex << std::uppercase;
    int count = 0;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            if (pixelOf(expected, x, y) == pixelOf(actual, x, y))
                continue;
            if (++count <= pixelsPrinted)
                differences << "\n  (" << std::dec << x << ", " << y << std::hex << "): expected "
                            << pixelOf(expected, x, y) << ", not " << pixelOf(actual, x, y);
        }
    }
    if (count == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << count << " of " << expected.width() << " x " << expected.height()
        << " pixels differ, first" << differences.str();
}

std::vector<int> reds(const QImage& image)
{
    std::vector<int> values;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            values.push_back(qRed(pixelOf(image, x, y)));
    }
    return values;
}

testing::AssertionResult isOpaqueGrey(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = pixelOf(image, x, y);
            if (qAlpha(pixel) != 255 || qRed(pixel) != qGreen(pixel) || qRed(pixel) != qBlue(pixel))
                return testing::AssertionFailure()
                    << "pixel (" << x << ", " << y << ") is " << std::hex << pixel;
        }
    }
    return testing::AssertionSuccess();
}

} // namespace support

void PrintTo(const QImage& image, std::ostream* stream)
{
    *stream << "image of " << image.width() << " x " << image.height() << ", format "
            << image.format();
}
