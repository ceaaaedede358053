#pragma once

#include "EmbeddedMetadata.h"

#include <exiv2/exiv2.hpp>

#include <QByteArray>

#include <cstdint>
#include <exception>
#include <new>

/// \file
/// Conversions between metadata as bytes and the types of Exiv2. Only the sources that call Exiv2 include this.

namespace host {

/// "Exif" and two zeros, which precede EXIF in a JPEG.
QByteArray exifPrefix();

/// The address and the size of \a bytes in the types of Exiv2.
const Exiv2::byte* bytesOf(const QByteArray& bytes);
std::uint32_t countOf(const QByteArray& bytes);

/// A copy of a buffer of Exiv2.
QByteArray arrayOf(const Exiv2::DataBuf& buffer);

/// Sets up Exiv2 for several threads, at the first call.
void startExiv2();

/// Returns what \a work returns, or an empty value when Exiv2 throws; such failures are not reported. Exiv2 throws its
/// own exceptions and those of the standard library.
template <typename Work> auto orEmpty(const Work& work) -> decltype(work())
try {
    startExiv2();
    return work();
} catch (const std::bad_alloc&) {
    throw;
} catch (const std::exception&) {
    return {};
}

/// EXIF with or without its prefix; empty when it cannot be parsed.
Exiv2::ExifData decodedExif(const QByteArray& exif);

/// EXIF with its prefix; empty when there are no entries.
QByteArray encodedExif(const Exiv2::ExifData& data);

/// The EXIF of a crop: upright, without a thumbnail, with the size and the resolution of the written picture.
Exiv2::ExifData exifOfCrop(const EmbeddedMetadata& metadata);

/// IPTC, bare or within a "Photoshop 3.0" block; empty when it cannot be parsed.
Exiv2::IptcData decodedIptc(const QByteArray& iptc);

/// Bare IPTC; empty when there are no entries.
QByteArray encodedIptc(const Exiv2::IptcData& data);

/// The entries for which \a isKept returns true.
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

} // namespace host
