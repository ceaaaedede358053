#include "PictureHeader.h"

#include <algorithm>
#include <cstring>

namespace host {

using vips::VImage;

namespace {

bool isSet(const VImage& header, const char* field)
{
    return header.get_typeof(field) != 0 && header.get_int(field) != 0;
}

} // namespace

const Format* formatOf(const vips::VSource& source)
{
    const char* const loader = vips_foreign_find_load_source(source.get_source());
    if (loader == nullptr)
        return nullptr;
    const auto* const format
        = std::find_if(formats().begin(), formats().end(), [loader](const Format& candidate) {
              return candidate.loader != nullptr
                  && std::strncmp(loader, candidate.loader, std::strlen(candidate.loader)) == 0;
          });
    return format == formats().end() ? nullptr : format;
}

bool isAvif(const VImage& header)
{
    constexpr auto compression = "heif-compression";
    return header.get_typeof(compression) != 0
        && std::strcmp(header.get_string(compression), "av1") == 0;
}

bool isMultiScan(const VImage& header) { return isSet(header, "jpeg-multiscan"); }

bool isDecodedWhole(const VImage& header, const Format& format)
{
    constexpr auto chroma = "jpeg-chroma-subsample";
    const bool isFullChroma
        = header.get_typeof(chroma) != 0 && std::strcmp(header.get_string(chroma), "4:4:4") == 0;
    return format.abilities.testFlag(Ability::WholeDecoding) || isSet(header, "interlaced")
        || (isMultiScan(header) && isFullChroma);
}

int bytesPerLevel(const VImage& image)
{
    return static_cast<int>(vips_format_sizeof(image.format()));
}

} // namespace host
