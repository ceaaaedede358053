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

// Exiv2's XMP parser has global state and takes a lock from its caller.
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

// Returns what \a work returns, or an empty value when Exiv2 throws; such failures are not reported. Exiv2 throws its
// own exceptions and those of the standard library.
template <typename Work> auto orEmpty(const Work& work) -> decltype(work())
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
    // EXIF from a PNG lacks the prefix.
    const bool hasBegin = exif.startsWith(QByteArray(exifBegin.data(), exifBeginBytes));
    const QByteArray plain = hasBegin ? exif.mid(exifBeginBytes) : exif;
    return orEmpty([&] {
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

// The EXIF of a crop: upright, without a thumbnail, with the size and the resolution of the written picture.
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

// The entries for which \a isKept returns true.
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
    return orEmpty([&] {
        Exiv2::IptcData data;
        Exiv2::IptcParser::decode(data, bytesOf(plain), countOf(plain));
        return data;
    });
}

QByteArray encodedIptc(const Exiv2::IptcData& data)
{
    return data.empty() ? QByteArray() : arrayOf(Exiv2::IptcParser::encode(data));
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
        boxes += box("Exif", offset + exif.mid(exifBeginBytes));
    if (!metadata.xmp.isEmpty())
        boxes += box("xml ", metadata.xmp);
    // The encoder writes deep and transparent pictures as a container.
    return jxl.startsWith(begin) ? QByteArray(jxl).insert(begin.size(), boxes)
                                 : begin + boxes + box("jxlc", jxl);
}

QByteArray xmpOfCrop(const QByteArray& xmp)
{
    if (!xmp.contains("Orientation") && !xmp.contains("Thumbnails"))
        return xmp;
    return orEmpty([&] {
        return filteredXmp(xmp, [](const Exiv2::Xmpdatum& entry) {
            return entry.tagName() != "Orientation" && entry.tagName().rfind("Thumbnails", 0) != 0;
        });
    });
}

QByteArray copyrightInExif(const QByteArray& exif)
{
    return orEmpty([&] {
        return encodedExif(filtered(decodedExif(exif), [](const Exiv2::Exifdatum& entry) {
            return entry.key() == "Exif.Image.Copyright" || entry.key() == "Exif.Image.Artist";
        }));
    });
}

QByteArray copyrightInXmp(const QByteArray& xmp)
{
    return orEmpty([&] {
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
    return orEmpty([&] {
        return encodedIptc(filtered(decodedIptc(iptc), [](const Exiv2::Iptcdatum& entry) {
            return entry.tagName() == "Copyright" || entry.tagName() == "Byline"
                || entry.tagName() == "Credit";
        }));
    });
}

} // namespace host
