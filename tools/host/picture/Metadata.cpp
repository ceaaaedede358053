#include "Metadata.h"

#include "MetadataFilters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace host {

namespace {

QByteArray blobOf(const vips::VImage& image, const char* name)
{
    if (image.get_typeof(name) == 0)
        return {};
    std::size_t bytes = 0;
    const void* const blob = image.get_blob(name, &bytes);
    return QByteArray(static_cast<const char*>(blob), static_cast<int>(bytes));
}

// Sets a metadata field, or removes it when \a blob is empty.
void setBlob(vips::VImage& image, const char* name, const QByteArray& blob)
{
    if (blob.isEmpty())
        image.remove(name);
    else
        vips_image_set_blob_copy(
            image.get_image(), name, blob.constData(), static_cast<std::size_t>(blob.size()));
}

std::vector<std::string> fieldsOf(const vips::VImage& image)
{
    gchar** const names = vips_image_get_fields(image.get_image());
    std::vector<std::string> fields;
    for (gchar** name = names; *name != nullptr; ++name)
        fields.emplace_back(*name);
    g_strfreev(names);
    return fields;
}

bool startsWith(const std::string& text, const char* with) { return text.rfind(with, 0) == 0; }

// Whether a metadata field describes the picture, as opposed to how it is displayed.
bool isDescriptive(const std::string& field)
{
    static const std::array<const char*, 8> beginnings { "exif-", "xmp-", "iptc-", "photoshop-",
        "png-comment-", "jpeg-comment", "gif-comment", "image-description" };
    return std::any_of(beginnings.begin(), beginnings.end(),
        [&](const char* beginning) { return startsWith(field, beginning); });
}

// Whether a field is a PNG text whose keyword names the author or the copyright.
bool isCopyrightText(const std::string& field)
{
    const auto endsWith = [&](const std::string& end) {
        return field.size() > end.size()
            && field.compare(field.size() - end.size(), end.size(), end) == 0;
    };
    return startsWith(field, "png-comment-") && (endsWith("-Copyright") || endsWith("-Author"));
}

// libvips reports one pixel per millimetre when a file has no resolution.
Resolution resolutionOf(const vips::VImage& image)
{
    if (image.xres() == 1 && image.yres() == 1)
        return {};
    constexpr double millimetresPerInch = 25.4;
    const auto perInch = [](double perMillimetre) {
        constexpr double most = 65535;
        return static_cast<int>(std::lround(std::min(perMillimetre * millimetresPerInch, most)));
    };
    return { perInch(image.xres()), perInch(image.yres()) };
}

template <typename Predicate> void removeFields(vips::VImage& image, const Predicate& isRemoved)
{
    for (const std::string& field : fieldsOf(image)) {
        if (isRemoved(field))
            image.remove(field.c_str());
    }
}

void keepCopyright(vips::VImage& image)
{
    const QByteArray exif = copyrightInExif(blobOf(image, VIPS_META_EXIF_NAME));
    const QByteArray xmp = copyrightInXmp(blobOf(image, VIPS_META_XMP_NAME));
    const QByteArray iptc = copyrightInIptc(blobOf(image, VIPS_META_IPTC_NAME));
    removeFields(image,
        [](const std::string& field) { return isDescriptive(field) && !isCopyrightText(field); });
    setBlob(image, VIPS_META_EXIF_NAME, exif);
    setBlob(image, VIPS_META_XMP_NAME, xmp);
    setBlob(image, VIPS_META_IPTC_NAME, iptc);
}

} // namespace

vips::VImage withUnread(const vips::VImage& image, const EmbeddedMetadata& unread)
{
    if (unread.exif.isEmpty() && unread.xmp.isEmpty() && unread.iptc.isEmpty())
        return image;
    vips::VImage result = image.copy();
    if (!unread.exif.isEmpty())
        setBlob(result, VIPS_META_EXIF_NAME, unread.exif);
    if (!unread.xmp.isEmpty())
        setBlob(result, VIPS_META_XMP_NAME, unread.xmp);
    if (!unread.iptc.isEmpty())
        setBlob(result, VIPS_META_IPTC_NAME, unread.iptc);
    return result;
}

vips::VImage withMetadata(const vips::VImage& image, KeptMetadata kept)
{
    vips::VImage result = image.copy();
    if (kept == KeptMetadata::None)
        removeFields(result, isDescriptive);
    if (kept == KeptMetadata::Copyright)
        keepCopyright(result);
    result.remove("jpeg-thumbnail-data");
    setBlob(result, VIPS_META_XMP_NAME, xmpOfCrop(blobOf(result, VIPS_META_XMP_NAME)));
    return result;
}

QByteArray withMissingMetadata(
    const QByteArray& file, const vips::VImage& image, const Format& format)
{
    const EmbeddedMetadata metadata { blobOf(image, VIPS_META_EXIF_NAME),
        blobOf(image, VIPS_META_XMP_NAME), blobOf(image, VIPS_META_IPTC_NAME),
        blobOf(image, VIPS_META_ICC_NAME), resolutionOf(image),
        { image.width(), vips_image_get_page_height(image.get_image()) } };
    const std::string name = format.name;
    if (name == "jpeg")
        return jpegWithMetadata(file, metadata);
    if (name == "tiff" && (!metadata.exif.isEmpty() || !metadata.iptc.isEmpty()))
        return tiffWithMetadata(file, metadata);
    return name == "jxl" ? jxlWithMetadata(file, metadata) : file;
}

} // namespace host
