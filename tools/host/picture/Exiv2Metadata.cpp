#include "Exiv2Metadata.h"

#include <array>
#include <mutex>

namespace host {

namespace {

QByteArray arrayOf(const Exiv2::Blob& blob)
{
    return QByteArray(reinterpret_cast<const char*>(blob.data()), static_cast<int>(blob.size()));
}

// Exiv2's XMP parser has global state and takes a lock from its caller.
void lockXmp(void* mutex, bool isLocked)
{
    if (isLocked)
        static_cast<std::recursive_mutex*>(mutex)->lock();
    else
        static_cast<std::recursive_mutex*>(mutex)->unlock();
}

void setUpExiv2()
{
    static std::recursive_mutex mutex;
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::XmpParser::initialize(lockXmp, &mutex);
}

} // namespace

QByteArray exifPrefix() { return QByteArray("Exif\0\0", 6); }

const Exiv2::byte* bytesOf(const QByteArray& bytes)
{
    return reinterpret_cast<const Exiv2::byte*>(bytes.constData());
}

std::uint32_t countOf(const QByteArray& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

QByteArray arrayOf(const Exiv2::DataBuf& buffer)
{
    return QByteArray(reinterpret_cast<const char*>(buffer.pData_), static_cast<int>(buffer.size_));
}

void startExiv2()
{
    static std::once_flag started;
    std::call_once(started, setUpExiv2);
}

Exiv2::ExifData decodedExif(const QByteArray& exif)
{
    if (exif.isEmpty())
        return {};
    // EXIF from a PNG lacks the prefix.
    const bool hasBegin = exif.startsWith(exifPrefix());
    const QByteArray plain = hasBegin ? exif.mid(exifPrefix().size()) : exif;
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
    return exifPrefix() + arrayOf(blob);
}

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

Exiv2::IptcData decodedIptc(const QByteArray& iptc)
{
    constexpr std::array<char, 14> photoshop { "Photoshop 3.0" };
    QByteArray plain = iptc;
    if (iptc.startsWith(QByteArray(photoshop.data(), photoshop.size()))) {
        const QByteArray blocks = iptc.mid(photoshop.size());
        const Exiv2::byte* record = nullptr;
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

} // namespace host
