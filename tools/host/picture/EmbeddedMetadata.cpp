#include "EmbeddedMetadata.h"

#include "PictureSource.h"

#include <QDataStream>

#include <exiv2/exiv2.hpp>

#include <algorithm>
#include <array>
#include <exception>
#include <mutex>
#include <new>
#include <string>

namespace host {

namespace {

using Exiv2::byte;

constexpr std::array<char, 6> exifBegin { 'E', 'x', 'i', 'f', '\0', '\0' };
constexpr auto exifBeginBytes = static_cast<int>(exifBegin.size());

const byte* bytesOf(const QByteArray& bytes)
{
    return reinterpret_cast<const byte*>(bytes.constData());
}

std::uint32_t countOf(const QByteArray& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

QByteArray arrayOf(const Exiv2::Blob& blob)
{
    return QByteArray(reinterpret_cast<const char*>(blob.data()), static_cast<int>(blob.size()));
}

QByteArray arrayOf(const Exiv2::DataBuf& buffer)
{
    return QByteArray(reinterpret_cast<const char*>(buffer.pData_), static_cast<int>(buffer.size_));
}

// Exiv2's parser of XMP is one for all threads.
void lockXmp(void* mutex, bool isLocked)
{
    if (isLocked)
        static_cast<std::recursive_mutex*>(mutex)->lock();
    else
        static_cast<std::recursive_mutex*>(mutex)->unlock();
}

void startExiv2()
{
    static std::recursive_mutex mutex;
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::XmpParser::initialize(lockXmp, &mutex);
}

// What \a work returns; nothing when Exiv2 cannot do it, which tells nobody. It throws exceptions of its own and those
// of the standard library.
template <typename Work> auto orNothing(const Work& work) -> decltype(work())
try {
    static std::once_flag started;
    std::call_once(started, startExiv2);
    return work();
} catch (const std::bad_alloc&) {
    throw;
} catch (const std::exception&) {
    return {};
}

Exiv2::ExifData decodedExif(const QByteArray& exif)
{
    if (exif.isEmpty())
        return {};
    // That of a PNG lacks the beginning.
    const bool hasBegin = exif.startsWith(QByteArray(exifBegin.data(), exifBeginBytes));
    const QByteArray plain = hasBegin ? exif.mid(exifBeginBytes) : exif;
    return orNothing([&] {
        Exiv2::ExifData data;
        Exiv2::ExifParser::decode(data, bytesOf(plain), countOf(plain));
        return data;
    });
}

QByteArray encodedExif(const Exiv2::ExifData& data)
{
    if (data.empty())
        return {};
    Exiv2::Blob blob;
    Exiv2::ExifParser::encode(blob, Exiv2::littleEndian, data);
    return QByteArray(exifBegin.data(), exifBeginBytes) + arrayOf(blob);
}

// Upright, without a thumbnail, with the size and the resolution of what is written.
Exiv2::ExifData exifOfCrop(const EmbeddedMetadata& metadata)
{
    Exiv2::ExifData data = decodedExif(metadata.exif);
    Exiv2::ExifThumb(data).erase();
    const auto replace = [&](const char* key, std::uint32_t value) {
        if (data.findKey(Exiv2::ExifKey(key)) != data.end())
            data[key] = value;
    };
    replace("Exif.Photo.PixelXDimension", static_cast<std::uint32_t>(metadata.size.width()));
    replace("Exif.Photo.PixelYDimension", static_cast<std::uint32_t>(metadata.size.height()));
    constexpr std::uint16_t upright = 1;
    if (data.findKey(Exiv2::ExifKey("Exif.Image.Orientation")) != data.end())
        data["Exif.Image.Orientation"] = upright;
    if (metadata.resolution.x > 0) {
        constexpr std::uint16_t inch = 2;
        data["Exif.Image.XResolution"] = Exiv2::Rational(metadata.resolution.x, 1);
        data["Exif.Image.YResolution"] = Exiv2::Rational(metadata.resolution.y, 1);
        data["Exif.Image.ResolutionUnit"] = inch;
    }
    return data;
}

// Nothing of what Exiv2 cannot read, or what one segment cannot hold.
std::string xmpForJpeg(const QByteArray& xmp)
{
    constexpr int mostBytes = 65'000;
    const bool isReadable = orNothing([&] {
        Exiv2::XmpData data;
        return Exiv2::XmpParser::decode(data, xmp.toStdString()) == 0;
    });
    return isReadable && xmp.size() <= mostBytes ? xmp.toStdString() : std::string();
}

// \param jpeg begins with the segment of JFIF.
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

// Only those entries that \a isKept says.
template <typename Data, typename Predicate>
Data filtered(const Data& data, const Predicate& isKept)
{
    Data kept;
    for (const auto& entry : data) {
        if (isKept(entry))
            kept.add(entry);
    }
    return kept;
}

// Of the picture, or of how its pixels are stored.
bool isOfPicture(const Exiv2::Exifdatum& entry)
{
    static const std::array<std::string, 11> ofPicture { "ImageDescription", "Make", "Model",
        "Software", "DateTime", "Artist", "HostComputer", "Copyright", "Rating", "XPKeywords",
        "XPComment" };
    const std::string group = entry.groupName();
    if (group == "Photo")
        return entry.tagName() != "PixelXDimension" && entry.tagName() != "PixelYDimension";
    return group == "GPSInfo"
        || (group == "Image"
            && std::find(ofPicture.begin(), ofPicture.end(), entry.tagName()) != ofPicture.end());
}

template <typename Predicate> QByteArray filteredXmp(const QByteArray& xmp, const Predicate& isKept)
{
    Exiv2::XmpData data;
    std::string packet;
    const bool isDone = Exiv2::XmpParser::decode(data, xmp.toStdString()) == 0
        && Exiv2::XmpParser::encode(packet, filtered(data, isKept)) == 0;
    return isDone && !packet.empty() ? QByteArray::fromStdString(packet) : QByteArray();
}

Exiv2::IptcData decodedIptc(const QByteArray& iptc)
{
    constexpr std::array<char, 14> photoshop { "Photoshop 3.0" };
    QByteArray plain = iptc;
    if (iptc.startsWith(QByteArray(photoshop.data(), photoshop.size()))) {
        const QByteArray blocks = iptc.mid(photoshop.size());
        const byte* record = nullptr;
        std::uint32_t headerBytes = 0;
        std::uint32_t dataBytes = 0;
        const int status = Exiv2::Photoshop::locateIptcIrb(
            bytesOf(blocks), blocks.size(), &record, &headerBytes, &dataBytes);
        plain = status == 0 ? QByteArray(reinterpret_cast<const char*>(record) + headerBytes,
                    static_cast<int>(dataBytes))
                            : QByteArray();
    }
    return orNothing([&] {
        Exiv2::IptcData data;
        Exiv2::IptcParser::decode(data, bytesOf(plain), countOf(plain));
        return data;
    });
}

QByteArray encodedIptc(const Exiv2::IptcData& data)
{
    return data.empty() ? QByteArray() : arrayOf(Exiv2::IptcParser::encode(data));
}

// \param file outlives the result.
auto openedFile(const QByteArray& file)
{
    auto image = Exiv2::ImageFactory::open(bytesOf(file), file.size());
    image->readMetadata();
    return image;
}

// The file with the metadata that the image has now.
QByteArray writtenFile(Exiv2::Image& image)
{
    image.writeMetadata();
    image.io().open();
    return arrayOf(image.io().read(static_cast<long>(image.io().size())));
}

constexpr quint32 boxHeaderBytes = 8;

// A box of the container that JPEG XL shares with other formats.
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
    metadata.exif = orNothing([&] {
        const auto image = openedFile(bytes);
        metadata.iptc = encodedIptc(image->iptcData());
        return encodedExif(filtered(image->exifData(), isOfPicture));
    });
    return metadata;
}

EmbeddedMetadata unreadInJxl(QIODevice& jxl)
{
    constexpr qint64 mostBytes = (qint64 { 8 } << 20U) + 1; // more than that is refused anyway
    constexpr int offsetBytes = 4; // before the EXIF
    EmbeddedMetadata metadata;
    jxl.seek(0);
    QDataStream stream(&jxl);
    for (;;) {
        const qint64 start = jxl.pos();
        quint32 length = 0;
        QByteArray kind(4, '\0');
        stream >> length;
        stream.readRawData(kind.data(), kind.size());
        // A last box, and one of more than four gigabytes, say so by a length that is none.
        if (stream.status() != QDataStream::Ok || length < boxHeaderBytes)
            return metadata;
        const qint64 contentBytes = std::min<qint64>(length - boxHeaderBytes, mostBytes);
        if (kind == "Exif")
            metadata.exif = QByteArray(exifBegin.data(), exifBeginBytes)
                + jxl.read(contentBytes).mid(offsetBytes);
        if (kind == "xml ")
            metadata.xmp = jxl.read(contentBytes);
        if (!jxl.seek(start + length))
            return metadata;
    }
}

QByteArray tiffWithMetadata(const QByteArray& tiff, const EmbeddedMetadata& metadata)
{
    const QByteArray whole = orNothing([&] {
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
    QByteArray whole = orNothing([&] { return written(true); });
    if (whole.isEmpty()) // its colours matter more than what cannot be written
        whole = orNothing([&] { return written(false); });
    return whole.isEmpty() ? plain : whole;
}

QByteArray jxlWithMetadata(const QByteArray& jxl, const EmbeddedMetadata& metadata)
{
    const QByteArray exif = orNothing([&] { return encodedExif(exifOfCrop(metadata)); });
    if (exif.isEmpty() && metadata.xmp.isEmpty())
        return jxl;
    const QByteArray offset(4, '\0'); // from which the EXIF begins
    const QByteArray begin
        = box("JXL ", "\r\n\x87\n") + box("ftyp", QByteArray("jxl \0\0\0\0jxl ", 12));
    QByteArray boxes;
    if (!exif.isEmpty())
        boxes += box("Exif", offset + exif.mid(exifBeginBytes));
    if (!metadata.xmp.isEmpty())
        boxes += box("xml ", metadata.xmp);
    // Deep and transparent pictures come in a container.
    return jxl.startsWith(begin) ? QByteArray(jxl).insert(begin.size(), boxes)
                                 : begin + boxes + box("jxlc", jxl);
}

QByteArray xmpOfCrop(const QByteArray& xmp)
{
    if (!xmp.contains("Orientation") && !xmp.contains("Thumbnails"))
        return xmp;
    return orNothing([&] {
        return filteredXmp(xmp, [](const Exiv2::Xmpdatum& entry) {
            return entry.tagName() != "Orientation" && entry.tagName().rfind("Thumbnails", 0) != 0;
        });
    });
}

QByteArray copyrightInExif(const QByteArray& exif)
{
    return orNothing([&] {
        return encodedExif(filtered(decodedExif(exif), [](const Exiv2::Exifdatum& entry) {
            return entry.key() == "Exif.Image.Copyright" || entry.key() == "Exif.Image.Artist";
        }));
    });
}

QByteArray copyrightInXmp(const QByteArray& xmp)
{
    return orNothing([&] {
        return filteredXmp(xmp, [](const Exiv2::Xmpdatum& entry) {
            const std::string group = entry.groupName();
            const std::string tag = entry.tagName();
            return group == "xmpRights" || group == "plus"
                || (group == "dc" && (tag == "rights" || tag == "creator"))
                || (group == "photoshop" && tag == "Credit");
        });
    });
}

QByteArray copyrightInIptc(const QByteArray& iptc)
{
    return orNothing([&] {
        return encodedIptc(filtered(decodedIptc(iptc), [](const Exiv2::Iptcdatum& entry) {
            return entry.tagName() == "Copyright" || entry.tagName() == "Byline"
                || entry.tagName() == "Credit";
        }));
    });
}

} // namespace host
