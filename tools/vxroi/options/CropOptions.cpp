#include "CropOptions.h"

#include "Areas.h"
#include "Checks.h"
#include "CommonOptions.h"
#include "HelpSection.h"
#include "Shapes.h"

#include "host/crop/SalienceSettings.h"
#include "host/files/OutputName.h"
#include "host/records/Json.h"

#include <QJsonArray>

namespace vxroi {

namespace {

using host::Fit;
using host::IfExists;

QJsonArray namesOf(const QVector<host::CropShape>& shapes)
{
    QJsonArray names;
    for (const host::CropShape& shape : shapes)
        names.append(shape.name);
    return names;
}

QJsonArray textsOf(const QVector<host::Area>& areas)
{
    QJsonArray texts;
    for (const host::Area& area : areas)
        texts.append(area.text);
    return texts;
}

QJsonArray coordinatesOf(const std::optional<QPointF>& point)
{
    return point ? QJsonArray { point->x(), point->y() } : QJsonArray();
}

} // namespace

void CropOptions::addTo(CLI::App& command)
{
    addShapeOptions(command);
    command
        .add_option("-o,--output", output,
            "write crops to this file; {dir} {stem} {ratio} {ext} stand for parts of its name")
        ->check(names("file"))
        ->type_name("FILE");
    addAreaOptions(command, constraints);
    const auto takeFocus = [this](const std::string& point) {
        constraints.focus = parseFocus(QString::fromStdString(point));
    };
    command
        .add_option_function<std::string>(
            "--focus", takeFocus, "centre the crop here, 0 to 1 across and down")
        ->type_name("FX,FY");
    addMapOptions(command);
    addOutputOptions(command);
    addHelpSection(command, "Placeholders", host::OutputName::placeholders());
    faces.addTo(command);
    writing.addTo(command);
}

// Ratios are added first, and so parsed first: a size with one side takes the other from them.
void CropOptions::addShapeOptions(CLI::App& command)
{
    const auto takeRatios
        = [this](const std::string& text) { ratios += parseRatios(QString::fromStdString(text)); };
    addRepeated(command, "--ratio", takeRatios, "shapes of the crop, such as 16:9, 1.91 or 1:1,4:5")
        ->type_name("W:H,...");
    const auto takeSize = [this](const std::string& text) {
        sizes += parseSize(QString::fromStdString(text), ratios);
        areRatiosForSizes = areRatiosForSizes || text.front() == 'x' || text.back() == 'x';
    };
    addRepeated(command, "--size", takeSize,
        "size of the crop in pixels, such as 1200x630, or 1200x with --ratio")
        ->type_name("WxH");
}

void CropOptions::addMapOptions(CLI::App& command)
{
    command
        .add_option("--map", map,
            "take the salience map from this picture or mask; {dir} {stem} {ext} stand for parts "
            "of the picture's name")
        ->check(names("file"))
        ->type_name("FILE");
    addMapsOption(command, maps);
}

void CropOptions::addOutputOptions(CLI::App& command)
{
    addChoice<IfExists>(command, "--if-exists", ifExists,
        { { "fail", IfExists::Fail }, { "skip", IfExists::Skip },
            { "overwrite", IfExists::Overwrite } },
        "what to do with outputs that already exist");
    command.add_flag("--upscale", upscale, "enlarge crops that are smaller than --size");
    addChoice<Fit>(command, "--fit", fit, { { "crop", Fit::Smaller }, { "pad", Fit::Padded } },
        "what to do with crops smaller than --size: crop leaves them as they are, pad puts "
        "background around them");
    addChoice<bool>(command, "--frames", areAllFramesRead, { { "first", false }, { "all", true } },
        "of an animated GIF or WebP, crop the first frame, or all frames alike");
    command.add_flag("--dry-run", dryRun, "write no file, only say what would be written");
}

QVector<host::CropShape> CropOptions::shapes() const
{
    return areRatiosForSizes ? sizes : ratios + sizes;
}

host::CropRules CropOptions::rules(const AnalysisOptions& analysis) const
{
    host::CropRules rules { analysis.rules };
    rules.analysis.reading.areAllFramesRead = areAllFramesRead;
    rules.analysis.maps = mapsIn(maps);
    rules.detector = faces.detector();
    rules.ifExists = ifExists;
    rules.fit = upscale ? Fit::Enlarged : fit;
    rules.writing = writing.rules;
    rules.isDryRun = dryRun;
    rules.makesFolders = host::OutputName(pathFrom(output)).hasPlaceholders();
    return rules;
}

QString CropOptions::request(const AnalysisOptions& analysis) const
{
    QJsonObject wanted = writing.toJson();
    wanted.insert(QStringLiteral("shapes"), namesOf(shapes()));
    wanted.insert(QStringLiteral("output"), pathFrom(output));
    wanted.insert(QStringLiteral("keep"), textsOf(constraints.keep));
    wanted.insert(QStringLiteral("avoid"), textsOf(constraints.avoid));
    wanted.insert(QStringLiteral("focus"), coordinatesOf(constraints.focus));
    wanted.insert(QStringLiteral("map"), pathFrom(map));
    if (!faces.name().isEmpty())
        wanted.insert(QStringLiteral("detector"), faces.name());
    wanted.insert(QStringLiteral("upscale"), upscale);
    wanted.insert(QStringLiteral("pad"), fit == Fit::Padded);
    wanted.insert(QStringLiteral("allFrames"), areAllFramesRead);
    wanted.insert(QStringLiteral("dryRun"), dryRun);
    wanted.insert(QStringLiteral("salience"), host::textOf(analysis.rules.salience));
    wanted.insert(
        QStringLiteral("useDamaged"), analysis.rules.reading.onBroken == host::OnBroken::Warn);
    return host::shortHashOf(wanted);
}

} // namespace vxroi
