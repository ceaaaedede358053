#include "MetadataFilters.h"

#include "Exiv2Metadata.h"

#include <string>

namespace host {

namespace {

template <typename Predicate> QByteArray filteredXmp(const QByteArray& xmp, const Predicate& isKept)
{
    Exiv2::XmpData data;
    std::string packet;
    const bool isDone = Exiv2::XmpParser::decode(data, xmp.toStdString()) == 0
        && Exiv2::XmpParser::encode(packet, filtered(data, isKept)) == 0;
    return isDone && !packet.empty() ? QByteArray::fromStdString(packet) : QByteArray();
}

} // namespace

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
