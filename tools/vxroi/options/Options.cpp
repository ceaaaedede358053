#include "Options.h"

#include "Checks.h"
#include "HelpSection.h"
#include "host/HostError.h"
#include "host/crop/SalienceSettings.h"
#include "host/files/FileName.h"
#include "host/files/OutputName.h"
#include "host/records/Json.h"

#include <CLI/CLI.hpp>

#include <QJsonArray>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

host::IfExists ifExistsCalled(const std::string& name)
{
    if (name == "skip")
        return host::IfExists::Skip;
    return name == "overwrite" ? host::IfExists::Overwrite : host::IfExists::Fail;
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

// Opacity comes last, as on the web; Qt has it first.
QColor colourCalled(const QString& name)
{
    constexpr int withOpacity = 9; // "#rrggbbaa"
    const bool isReordered = name.startsWith(QLatin1Char('#')) && name.size() == withOpacity;
    return QColor(isReordered ? QLatin1Char('#') + name.right(2) + name.mid(1, 6) : name);
}

QJsonArray jsonOf(const std::vector<std::string>& texts)
{
    QJsonArray array;
    for (const std::string& text : texts)
        array.append(QString::fromStdString(text));
    return array;
}

CLI::Validator atLeastOne() { return wholeNumber(1, 1'000'000'000'000); }

} // namespace

void AnalysisOptions::addTo(CLI::App& command)
{
    const auto group = [](CLI::Option* option) { option->group("Analysis"); };
    group(command.add_option("--preset", preset, "which methods count how much")
              ->type_name("PRESET")
              ->capture_default_str());
    group(command.add_option("--weight", weights, "one method's weight, 0 to switch it off")
              ->type_name("METHOD=N")
              ->expected(1)
              ->take_all()
              ->allow_extra_args(false));
    group(command.add_option("--tune", tunings, "one setting of the histogram method")
              ->type_name("SETTING=N")
              ->expected(1)
              ->take_all()
              ->allow_extra_args(false));
    group(command.add_option("--max-pixels", maxPixels, "refuse pictures with more pixels")
              ->type_name("N")
              ->check(atLeastOne())
              ->capture_default_str());
    group(command.add_option("--max-bytes", maxBytes, "refuse larger files")
              ->type_name("N")
              ->check(atLeastOne())
              ->capture_default_str());
    group(command.add_option("--max-seconds", maxSeconds, "give up a picture that takes longer")
              ->type_name("N")
              ->check(wholeNumber(1, 1'000'000))
              ->capture_default_str());
    group(command
              .add_option("--on-broken", onBroken,
                  "what to do with a damaged picture: error, or warn and use the rest")
              ->type_name("WHAT")
              ->check(oneOf({ "error", "warn" }))
              ->capture_default_str());
    addHelpSection(command, "Presets", host::explainedPresets());
    addHelpSection(command, "Methods", host::explainedMethods());
    addHelpSection(command, "Settings", host::explainedTunings());
}

host::AnalysisRules AnalysisOptions::rules() const
{
    VXCropSettings settings = host::presetCalled(QString::fromStdString(preset));
    for (const std::string& weight : weights)
        host::setWeight(settings, QString::fromStdString(weight));
    for (const std::string& tuning : tunings)
        host::tune(settings, QString::fromStdString(tuning));
    return { settings,
        { maxPixels, maxBytes, onBroken == "warn" ? host::OnBroken::Warn : host::OnBroken::Error,
            maxSeconds } };
}

void WritingOptions::addTo(CLI::App& command)
{
    const auto group = [](CLI::Option* option) { option->group("Writing"); };
    group(command.add_option("--format", format, "write this format, whatever the name ends in")
              ->type_name("NAME")
              ->check(oneOf(formatNames())));
    group(command.add_option("--quality", quality, "of JPEG, WebP, JPEG XL, AVIF and HEIC")
              ->type_name("N")
              ->check(wholeNumber(1, 100)));
    group(command
              .add_option("--chroma", chroma,
                  "the resolution of colours in JPEG, AVIF and HEIC: full, half, or the source's")
              ->type_name("WHAT")
              ->check(oneOf({ "auto", "444", "420" }))
              ->capture_default_str());
    group(command.add_flag(
        "--progressive", progressive, "write JPEG, PNG and GIF so that they appear coarse first"));
    group(command
              .add_option("--metadata", metadata,
                  "what to keep of EXIF, XMP, IPTC and comments: keep, copyright or strip")
              ->type_name("WHAT")
              ->check(oneOf({ "keep", "copyright", "strip" }))
              ->capture_default_str());
    group(command.add_flag("--to-srgb", toSrgb, "convert colours to sRGB, and write no profile"));
    group(command
              .add_option("--background", background,
                  "a colour, such as white, #ff8000 or #ff800080, for --fit pad and below "
                  "transparent pixels")
              ->type_name("COLOUR")
              ->capture_default_str());
}

host::WritingRules WritingOptions::rules() const
{
    host::WritingRules rules;
    rules.format = format.empty() ? nullptr : host::formatCalled(QString::fromStdString(format));
    rules.quality = quality;
    rules.chroma = chroma == "444" ? host::Chroma::Full
        : chroma == "420"          ? host::Chroma::Half
                                   : host::Chroma::OfSource;
    rules.isProgressive = progressive;
    rules.isInSrgb = toSrgb;
    rules.metadata = metadata == "strip" ? host::KeptMetadata::None
        : metadata == "copyright"        ? host::KeptMetadata::Copyright
                                         : host::KeptMetadata::All;
    rules.background = colourCalled(QString::fromStdString(background));
    if (!rules.background.isValid())
        throw HostError(ExitCode::Usage,
            QStringLiteral("--background %1").arg(QString::fromStdString(background)),
            QStringLiteral("not a colour"),
            QStringLiteral("write one such as white, #ff8000 or transparent"));
    return rules;
}

QJsonObject WritingOptions::toJson() const
{
    return { { QStringLiteral("format"), QString::fromStdString(format) },
        { QStringLiteral("quality"), quality },
        { QStringLiteral("chroma"), QString::fromStdString(chroma) },
        { QStringLiteral("progressive"), progressive },
        { QStringLiteral("metadata"), QString::fromStdString(metadata) },
        { QStringLiteral("toSrgb"), toSrgb },
        { QStringLiteral("background"), QString::fromStdString(background) } };
}

void CropOptions::addTo(CLI::App& command)
{
    command.add_option("--ratio", ratios, "shapes of the crop, such as 16:9, 1.91 or 1:1,4:5")
        ->type_name("W:H,...")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
    command
        .add_option(
            "--size", sizes, "size of the crop in pixels, such as 1200x630, or 1200x with --ratio")
        ->type_name("WxH")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
    command
        .add_option("-o,--output", output,
            "write crops to this file; {dir} {stem} {ratio} {ext} stand for parts of its name")
        ->check(namesFile())
        ->type_name("FILE");
    addAreaOptions(command, keep, avoid);
    command.add_option("--focus", focus, "centre the crop here, 0 to 1 across and down")
        ->type_name("FX,FY");
    command
        .add_option("--map", map,
            "take the salience map from this picture or mask; {dir} {stem} {ext} stand for parts "
            "of the "
            "picture's name")
        ->check(namesFile())
        ->type_name("FILE");
    addMapsOption(command, maps);
    command.add_option("--if-exists", ifExists, "what to do with outputs that already exist")
        ->type_name("WHAT")
        ->check(oneOf({ "fail", "skip", "overwrite" }))
        ->capture_default_str();
    command.add_flag("--upscale", upscale, "enlarge crops that are smaller than --size");
    command
        .add_option("--fit", fit,
            "what becomes of crops that are smaller than --size: crop, as they are, or pad, with "
            "background around them")
        ->type_name("WHAT")
        ->check(oneOf({ "crop", "pad" }))
        ->capture_default_str();
    command
        .add_option("--frames", frames,
            "of an animated GIF or WebP, crop the first frame, or all of them by one window")
        ->type_name("WHAT")
        ->check(oneOf({ "first", "all" }))
        ->capture_default_str();
    command.add_flag("--dry-run", dryRun, "write no file, only say what would be written");
    addHelpSection(command, "Places", host::OutputName::places());
    writing.addTo(command);
}

QVector<host::CropShape> CropOptions::shapes() const
{
    QVector<host::CropShape> ofRatios;
    for (const std::string& ratio : ratios)
        ofRatios += host::parseRatios(QString::fromStdString(ratio));
    QVector<host::CropShape> ofSizes;
    bool areRatiosOfSizes = false;
    for (const std::string& size : sizes) {
        ofSizes += host::parseSizes(QString::fromStdString(size), ofRatios);
        areRatiosOfSizes = areRatiosOfSizes || size.front() == 'x' || size.back() == 'x';
    }
    return areRatiosOfSizes ? ofSizes : ofRatios + ofSizes;
}

host::Constraints CropOptions::constraints() const
{
    host::Constraints constraints;
    constraints.keep = parseAreas(keep, QStringLiteral("--keep"));
    constraints.avoid = parseAreas(avoid, QStringLiteral("--avoid"));
    if (!focus.empty())
        constraints.focus = host::parsePoint(QString::fromStdString(focus));
    return constraints;
}

host::CropRules CropOptions::rules(const AnalysisOptions& analysis) const
{
    host::CropRules rules { analysis.rules() };
    rules.ifExists = ifExistsCalled(ifExists);
    rules.fit = upscale ? host::Fit::Enlarged
        : fit == "pad"  ? host::Fit::Padded
                        : host::Fit::Smaller;
    rules.writing = writing.rules();
    rules.analysis.reading.areAllFramesRead = frames == "all";
    rules.isDryRun = dryRun;
    rules.maps = mapsIn(maps);
    rules.makesFolders = host::OutputName(pathFrom(output)).hasPlaces();
    return rules;
}

QString CropOptions::request(const AnalysisOptions& analysis) const
{
    QJsonObject wanted = writing.toJson();
    QJsonArray shapeNames;
    const QVector<host::CropShape> wantedShapes = shapes();
    for (const host::CropShape& shape : wantedShapes)
        shapeNames.append(shape.name);
    wanted.insert(QStringLiteral("shapes"), shapeNames);
    wanted.insert(QStringLiteral("sizes"), jsonOf(sizes));
    wanted.insert(QStringLiteral("output"), pathFrom(output));
    wanted.insert(QStringLiteral("keep"), jsonOf(keep));
    wanted.insert(QStringLiteral("avoid"), jsonOf(avoid));
    wanted.insert(QStringLiteral("focus"), QString::fromStdString(focus));
    wanted.insert(QStringLiteral("map"), pathFrom(map));
    wanted.insert(QStringLiteral("fit"), QString::fromStdString(upscale ? "upscale" : fit));
    wanted.insert(QStringLiteral("frames"), QString::fromStdString(frames));
    wanted.insert(QStringLiteral("dryRun"), dryRun);
    wanted.insert(QStringLiteral("salience"), host::textOf(analysis.rules().salience));
    wanted.insert(QStringLiteral("onBroken"), QString::fromStdString(analysis.onBroken));
    return shortHashOf(wanted);
}

QString shortHashOf(const QJsonObject& object)
{
    constexpr int digits = 16;
    return host::hashOf(object).left(digits);
}

void addMapsOption(CLI::App& command, std::string& folder)
{
    command
        .add_option("--maps", folder,
            "keep the map of each picture in this folder, and take it from there the next time")
        ->check(namesFile())
        ->type_name("DIR");
}

std::shared_ptr<const host::MapStore> mapsIn(const std::string& folder)
{
    return folder.empty() ? nullptr : std::make_shared<host::MapStore>(pathFrom(folder));
}

void addQuietOption(CLI::App& command, bool& quiet)
{
    command.add_flag("-q,--quiet", quiet, "say nothing but why the command as a whole failed");
}

QString pathFrom(const std::string& argument)
{
    return host::textOfName(QByteArray::fromStdString(argument));
}

CLI::Validator namesFile()
{
    return CLI::Validator(
        [](const std::string& name) { return std::string(name.empty() ? "names no file" : ""); },
        std::string());
}

void addAreaOptions(
    CLI::App& command, std::vector<std::string>& keep, std::vector<std::string>& avoid)
{
    const auto add = [&](const char* name, std::vector<std::string>& areas, const char* what) {
        command.add_option(name, areas, what)
            ->type_name("X,Y,W,H")
            ->expected(1)
            ->take_all()
            ->allow_extra_args(false);
    };
    add("--keep", keep, "an area that the crop should hold, in pixels or percent");
    add("--avoid", avoid, "an area that the crop should leave out, in pixels or percent");
}

QVector<host::Area> parseAreas(const std::vector<std::string>& texts, const QString& option)
{
    QVector<host::Area> areas;
    for (const std::string& text : texts)
        areas.append(host::parseArea(QString::fromStdString(text), option));
    return areas;
}

} // namespace vxroi
