#include "WritingOptions.h"

#include "Checks.h"
#include "host/HostError.h"
#include "host/picture/Formats.h"

#include <QString>

namespace vxroi {

namespace {

using host::Chroma;
using host::KeptMetadata;

const char* const group = "Writing";

Choices<Chroma> chromas()
{
    return { { "auto", Chroma::OfSource }, { "444", Chroma::Full }, { "420", Chroma::Half } };
}

Choices<KeptMetadata> metadataToKeep()
{
    return { { "keep", KeptMetadata::All }, { "copyright", KeptMetadata::Copyright },
        { "strip", KeptMetadata::None } };
}

std::vector<std::string> formatNames()
{
    std::vector<std::string> names;
    for (const host::Format& format : host::formats()) {
        if (host::isWritten(format))
            names.push_back(format.suffixes.first().toStdString());
    }
    return names;
}

// Opacity comes last in "#rrggbbaa", as in CSS; Qt expects it first.
QColor parseColour(const QString& text)
{
    constexpr int withOpacity = 9; // "#rrggbbaa"
    const bool isReordered = text.startsWith(QLatin1Char('#')) && text.size() == withOpacity;
    QColor colour(isReordered ? QLatin1Char('#') + text.right(2) + text.mid(1, 6) : text);
    if (!colour.isValid())
        throw host::HostError(host::ExitCode::Usage, QStringLiteral("--background %1").arg(text),
            QStringLiteral("not a colour"),
            QStringLiteral("write one such as white, #ff8000 or transparent"));
    return colour;
}

void addFormatOptions(CLI::App& command, host::WritingRules& rules)
{
    const auto chooseFormat = [&rules](const std::string& name) {
        rules.format = host::formatCalled(QString::fromStdString(name));
    };
    command
        .add_option_function<std::string>(
            "--format", chooseFormat, "write this format, whatever the suffix of the name")
        ->type_name("NAME")
        ->check(oneOf(formatNames()))
        ->group(group);
    command.add_option("--quality", rules.quality, "of JPEG, WebP, JPEG XL, AVIF and HEIC")
        ->type_name("N")
        ->check(wholeNumber(1, 100))
        ->group(group);
    addChoice(command, "--chroma", rules.chroma, chromas(),
        "chroma subsampling in JPEG, AVIF and HEIC; auto is that of the source")
        ->group(group);
    command
        .add_flag("--progressive", rules.isProgressive,
            "write progressive JPEG and interlaced PNG and GIF, which appear coarse first")
        ->group(group);
}

void addContentOptions(CLI::App& command, host::WritingRules& rules)
{
    addChoice(command, "--metadata", rules.metadata, metadataToKeep(),
        "what to keep of EXIF, XMP, IPTC and comments: keep, copyright or strip")
        ->group(group);
    command.add_flag("--to-srgb", rules.isInSrgb, "convert colours to sRGB, and write no profile")
        ->group(group);
    const auto chooseBackground = [&rules](const std::string& colour) {
        rules.background = parseColour(QString::fromStdString(colour));
    };
    command
        .add_option_function<std::string>("--background", chooseBackground,
            "a colour, such as white, #ff8000 or #ff800080, for --fit pad and below transparent "
            "pixels")
        ->type_name("COLOUR")
        ->default_str("white")
        ->group(group);
}

} // namespace

void WritingOptions::addTo(CLI::App& command)
{
    addFormatOptions(command, rules);
    addContentOptions(command, rules);
}

QString WritingOptions::suffix() const
{
    return rules.format == nullptr ? QString() : rules.format->suffixes.first();
}

QJsonObject WritingOptions::toJson() const
{
    return { { QStringLiteral("format"), suffix() }, { QStringLiteral("quality"), rules.quality },
        { QStringLiteral("chroma"), QString::fromStdString(wordFor(chromas(), rules.chroma)) },
        { QStringLiteral("progressive"), rules.isProgressive },
        { QStringLiteral("metadata"),
            QString::fromStdString(wordFor(metadataToKeep(), rules.metadata)) },
        { QStringLiteral("toSrgb"), rules.isInSrgb },
        { QStringLiteral("background"), rules.background.name(QColor::HexArgb) } };
}

} // namespace vxroi
