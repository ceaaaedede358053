#include "QtPixels.h"

#include "ImageMemory.h"
#include "Pixels.h"

#include <QColorSpace>

#include <algorithm>
#include <cstring>
#include <memory>

namespace host {

using vips::VImage;

namespace {

// The Qt format with the same pixel layout; Format_Invalid when there is none.
QImage::Format formatOf(const VImage& image)
{
    const VipsInterpretation kind = image.interpretation();
    if (image.format() == VIPS_FORMAT_UCHAR && kind == VIPS_INTERPRETATION_B_W
        && image.bands() == 1)
        return QImage::Format_Grayscale8;
    if (image.format() != VIPS_FORMAT_UCHAR || kind != VIPS_INTERPRETATION_sRGB)
        return QImage::Format_Invalid;
    if (image.bands() == 3)
        return QImage::Format_RGB888;
    return image.bands() == 4 ? QImage::Format_RGBA8888 : QImage::Format_Invalid;
}

// The pixels of a QImage in one of the formats of formatOf().
VImage pixelsOf(const QImage& image, int bands)
{
    const auto rowBytes = static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(bands);
    VImage copy = VImage::new_memory();
    vips_image_init_fields(copy.get_image(), image.width(), image.height(), bands,
        VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
        bands == 1 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB, 1.0, 1.0);
    check(vips_image_write_prepare(copy.get_image()));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(addressOf(copy, 0, y), image.constScanLine(y), rowBytes);
    return copy;
}

} // namespace

bool hasQtFormat(const VImage& image) { return formatOf(image) != QImage::Format_Invalid; }

QImage viewOf(const VImage& image, const QRect& part)
{
    return QImage(addressOf(image, part.left(), part.top()), part.width(), part.height(),
        static_cast<int>(bytesPerRow(image)), formatOf(image));
}

QImage toQImage(const VImage& image)
{
    const bool isInMemory = image.get_image()->dtype == VIPS_IMAGE_SETBUF;
    auto memory = std::make_unique<VImage>(
        isInMemory ? image : inMemory(image, boundsOf(image), Deadline::never()));
    const uchar* const pixels = addressOf(*memory, 0, 0);
    const auto release = [](void* pointer) { delete static_cast<VImage*>(pointer); };
    QImage view = notNull(QImage(pixels, memory->width(), memory->height(),
        static_cast<int>(bytesPerRow(*memory)), formatOf(*memory), release, memory.get()));
    static_cast<void>(memory.release()); // the view releases it
    constexpr double millimetresPerMetre = 1000;
    view.setDotsPerMeterX(qRound(image.xres() * millimetresPerMetre));
    view.setDotsPerMeterY(qRound(image.yres() * millimetresPerMetre));
    return view;
}

VImage toVipsImage(const QImage& image)
{
    const bool isGrey = image.format() == QImage::Format_Grayscale8;
    const bool isTransparent = image.hasAlphaChannel();
    const QImage::Format format = isGrey ? QImage::Format_Grayscale8
        : isTransparent                  ? QImage::Format_RGBA8888
                                         : QImage::Format_RGB888;
    VImage copy = pixelsOf(notNull(image.convertToFormat(format)),
        isGrey              ? 1
            : isTransparent ? 4
                            : 3);
    constexpr double millimetresPerMetre = 1000;
    // A BMP may claim any number; a negative one makes libvips end the program.
    copy.get_image()->Xres = std::max(image.dotsPerMeterX(), 0) / millimetresPerMetre;
    copy.get_image()->Yres = std::max(image.dotsPerMeterY(), 0) / millimetresPerMetre;
    const QByteArray profile = image.colorSpace().iccProfile();
    if (!profile.isEmpty())
        vips_image_set_blob_copy(copy.get_image(), VIPS_META_ICC_NAME, profile.constData(),
            static_cast<std::size_t>(profile.size()));
    const QStringList keys = image.textKeys();
    for (int i = 0; i < keys.size(); ++i) // named as libvips names the texts of a PNG
        copy.set(QStringLiteral("png-comment-%1-%2").arg(i).arg(keys.at(i)).toUtf8().constData(),
            image.text(keys.at(i)).toUtf8().constData());
    return copy;
}

} // namespace host
