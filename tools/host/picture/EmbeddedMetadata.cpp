#include "EmbeddedMetadata.h"

#include "Exiv2Metadata.h"
#include "PictureSource.h"

#include <QDataStream>

#include <algorithm>
#include <array>
#include <string>

namespace host {

namespace {

// \a xmp, or an empty text when Exiv2 cannot read it or it does not fit into one JPEG segment.
std::string xmpForJpeg(const QByteArray& xmp)
{
    constexpr int mostBytes = 65'000;
    const bool isReadable = orEmpty([&] {
        Exiv2::XmpData data;
        return Exiv2::XmpParser::decode(data, xmp.toStdString()) == 0;
    });
    return isReadable && xmp.size() <= mostBytes ? xmp.toStdString() : std::string();
}

// Sets the resolution in the JFIF segment that \a jpeg begins with.
QByteArray jfifWithResolution(const QByteArray& jpeg, const Resolution& resolution)
{
    constexpr int unitPosition = 13;
    if (resolution.x == 0 || !jpeg.mid(0, unitPosition).contains("JFIF"))
        return jpeg;
    QByteArray density;
    QDataStream stream(&density, QIODevice::WriteOnly);
    constexpr quint8 inch = 1;
    stream << inch << static_cast<quint16>(resolution.x) << static_cast<quint16>(resolution.y);
    return QByteArray(jpeg).replace(unitPosition, density.size(), density);
}

// Whether an entry describes the picture; the others describe how its pixels are stored.
bool isOfPicture(const Exiv2::Exifdatum& entry)
{
    static const std::array<std::string, 11> pictureTags { "ImageDescription", "Make", "Model",
        "Software", "DateTime", "Artist", "HostComputer", "Copyright", "Rating", "XPKeywords",
        "XPComment" };
    const std::string group = entry.groupName();
    if (group == "Photo")
        return entry.tagName() != "PixelXDimension" && entry.tagName() != "PixelYDimension";
    return group == "GPSInfo"
        || (group == "Image"
            && std::find(pictureTags.begin(), pictureTags.end(), entry.tagName())
                != pictureTags.end());
}

// \pre \a file outlives the result.
auto openedFile(const QByteArray& file)
{
    auto image = Exiv2::ImageFactory::open(bytesOf(file), file.size());
    image->readMetadata();
    return image;
}

// The file with the current metadata of \a image.
QByteArray writtenFile(Exiv2::Image& image)
{
    image.writeMetadata();
    image.io().open();
    return arrayOf(image.io().read(static_cast<long>(image.io().size())));
}

constexpr quint32 boxHeaderBytes = 8;

// A box of the ISO base media container, which JPEG XL uses.
QByteArray box(const char* kind, const QByteArray& content)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << boxHeaderBytes + countOf(content);
    return bytes + kind + content;
}

} // namespace

EmbeddedMetadata unreadInTiff(QIODevice& tiff)
{
    const QByteArray bytes = contentOf(tiff);
    EmbeddedMetadata metadata;
    metadata.exif = orEmpty([&] {
        const auto image = openedFile(bytes);
        metadata.iptc = encodedIptc(image->iptcData());
        return encodedExif(filtered(image->exifData(), isOfPicture));
    });
    return metadata;
}

EmbeddedMetadata unreadInJxl(QIODevice& jxl)
{
    constexpr qint64 mostBytes = (qint64 { 8 } << 20U) + 1; // more is refused later
    constexpr int offsetBytes = 4; // of the EXIF within its box; precedes it
    EmbeddedMetadata metadata;
    jxl.seek(0);
    QDataStream stream(&jxl);
    for (;;) {
        const qint64 start = jxl.pos();
        quint32 length = 0;
        QByteArray kind(4, '\0');
        stream >> length;
        stream.readRawData(kind.data(), kind.size());
        // A length below 8 marks a box that extends to the end, or one of more than four gigabytes.
        if (stream.status() != QDataStream::Ok || length < boxHeaderBytes)
            return metadata;
        const qint64 contentBytes = std::min<qint64>(length - boxHeaderBytes, mostBytes);
        if (kind == "Exif")
            metadata.exif = exifPrefix() + jxl.read(contentBytes).mid(offsetBytes);
        if (kind == "xml ")
            metadata.xmp = jxl.read(contentBytes);
        if (!jxl.seek(start + length))
            return metadata;
    }
}

QByteArray tiffWithMetadata(const QByteArray& tiff, const EmbeddedMetadata& metadata)
{
    const QByteArray whole = orEmpty([&] {
        const auto image = openedFile(tiff);
        Exiv2::ExifData& all = image->exifData();
        for (const Exiv2::Exifdatum& entry : filtered(decodedExif(metadata.exif), isOfPicture)) {
            if (all.findKey(Exiv2::ExifKey(entry.key())) == all.end())
                all.add(entry);
        }
        image->setIptcData(decodedIptc(metadata.iptc));
        return writtenFile(*image);
    });
    return whole.isEmpty() ? tiff : whole;
}

QByteArray jpegWithMetadata(const QByteArray& jpeg, const EmbeddedMetadata& metadata)
{
    QByteArray plain = jfifWithResolution(jpeg, metadata.resolution);
    const bool hasMore = !metadata.exif.isEmpty() || !metadata.xmp.isEmpty()
        || !metadata.iptc.isEmpty() || !metadata.profile.isEmpty();
    if (!hasMore)
        return plain;
    const auto written = [&](bool isAll) {
        const auto image = openedFile(plain);
        if (isAll) {
            image->setExifData(exifOfCrop(metadata));
            image->setIptcData(decodedIptc(metadata.iptc));
            image->setXmpPacket(xmpForJpeg(metadata.xmp));
            image->writeXmpFromPacket(true);
        }
        if (!metadata.profile.isEmpty()) {
            Exiv2::DataBuf profile(bytesOf(metadata.profile), metadata.profile.size());
            image->setIccProfile(profile, false);
        }
        return writtenFile(*image);
    };
    QByteArray whole = orEmpty([&] { return written(true); });
    if (whole.isEmpty()) // keep at least the colour profile
        whole = orEmpty([&] { return written(false); });
    return whole.isEmpty() ? plain : whole;
}

QByteArray jxlWithMetadata(const QByteArray& jxl, const EmbeddedMetadata& metadata)
{
    const QByteArray exif = orEmpty([&] { return encodedExif(exifOfCrop(metadata)); });
    if (exif.isEmpty() && metadata.xmp.isEmpty())
        return jxl;
    const QByteArray offset(4, '\0'); // the EXIF follows immediately
    const QByteArray begin
        = box("JXL ", "\r\n\x87\n") + box("ftyp", QByteArray("jxl \0\0\0\0jxl ", 12));
    QByteArray boxes;
    if (!exif.isEmpty())
        boxes += box("Exif", offset + exif.mid(exifPrefix().size()));
    if (!metadata.xmp.isEmpty())
        boxes += box("xml ", metadata.xmp);
    // The encoder writes deep and transparent pictures as a container.
    return jxl.startsWith(begin) ? QByteArray(jxl).insert(begin.size(), boxes)
                                 : begin + boxes + box("jxlc", jxl);
}

} // namespace host
