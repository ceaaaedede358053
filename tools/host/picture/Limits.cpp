#include "Limits.h"

#include "PictureSource.h"
#include "host/HostError.h"

#include <QDataStream>

#include <cstddef>

namespace host {

namespace {

constexpr std::size_t mostMetadataBytes = std::size_t { 8 } << 20U;

[[noreturn]] void throwTooMuch(const QString& path)
{
    throw HostError(ExitCode::UnreadableInput, path,
        QStringLiteral("its metadata takes more than 8 megabytes"),
        QStringLiteral("strip the metadata that it does not need"));
}

void* addBytes(VipsImage* /*image*/, const char* /*name*/, GValue* value, void* sum)
{
    std::size_t bytes = 0;
    if (G_VALUE_HOLDS(value, VIPS_TYPE_BLOB))
        vips_value_get_blob(value, &bytes);
    else if (G_VALUE_HOLDS(value, VIPS_TYPE_REF_STRING))
        vips_value_get_ref_string(value, &bytes);
    *static_cast<std::size_t*>(sum) += bytes;
    return nullptr;
}

} // namespace

void refuseManyTexts(const QString& path, QIODevice& png)
{
    constexpr int mostTexts = 20;
    constexpr int signatureBytes = 8;
    png.seek(signatureBytes);
    QDataStream stream(&png);
    int texts = 0;
    while (stream.status() == QDataStream::Ok) {
        quint32 length = 0;
        QByteArray kind(4, '\0');
        stream >> length;
        // Texts after the pixels are not read.
        if (stream.readRawData(kind.data(), kind.size()) != kind.size() || kind == "IDAT")
            return;
        if (kind == "zTXt" || kind == "iTXt")
            ++texts;
        if (texts > mostTexts || length > mostMetadataBytes) // libpng allocates the claimed length
            throwTooMuch(path);
        constexpr int checksumBytes = 4;
        if (!png.seek(png.pos() + length + checksumBytes))
            return;
    }
}

void refuseMuchMetadata(const QString& path, const vips::VImage& header)
{
    std::size_t bytes = 0;
    vips_image_map(header.get_image(), addBytes, &bytes);
    if (bytes > mostMetadataBytes)
        throwTooMuch(path);
}

void refuseManyScans(const QString& path, QIODevice& jpeg)
{
    // Compressed data never contains the first two of these bytes. A thumbnail may add a few matches.
    constexpr int mostScans = 100;
    if (contentOf(jpeg).count(QByteArray("\xff\xda\0", 3)) > mostScans)
        throw HostError(ExitCode::UnreadableInput, path,
            QStringLiteral("the JPEG has more than %1 scans").arg(mostScans),
            QStringLiteral("save it again with fewer scans"));
}

} // namespace host
