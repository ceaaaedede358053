#include "Options.h"

#include "host/HostError.h"
#include "host/OutputName.h"
#include "host/SalienceSettings.h"

#include <CLI/CLI.hpp>

#include <QRegularExpression>
#include <QStringList>

#include <array>

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

CLI::Range atLeastOne() { return { qint64 { 1 }, qint64 { 1'000'000'000'000 } }; }

} // namespace

void AnalysisOptions::addTo(CLI::App& command)
{
    const auto group = [](CLI::Option* option) { option->group("Analysis"); };
    group(command.add_option("--preset", preset, "which methods count how much: photo or library")
              ->type_name("NAME")
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
              ->check(CLI::Range(1, 1'000'000))
              ->capture_default_str());
    group(command
              .add_option("--on-broken", onBroken,
                  "what to do with a damaged picture: error, or warn and use the rest")
              ->type_name("WHAT")
              ->check(CLI::IsMember({ "error", "warn" }))
              ->capture_default_str());
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

void CropOptions::addTo(CLI::App& command)
{
    command.add_option("--ratio", ratios, "shapes of the crop, such as 16:9 or 1:1,4:5")
        ->type_name("W:H,...");
    command.add_option("--size", sizes, "size of the crop in pixels, such as 1200x630")
        ->type_name("WxH")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
    command
        .add_option("-o,--output", output,
            "write crops to this file; {dir} {stem} {ratio} {ext} stand for parts of its name")
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
    command.add_option("--if-exists", ifExists, "what to do with outputs that are there already")
        ->type_name("WHAT")
        ->check(CLI::IsMember({ "fail", "skip", "overwrite" }))
        ->capture_default_str();
    command.add_flag("--upscale", upscale, "enlarge crops that are smaller than --size");
    command.add_flag("--dry-run", dryRun, "write no file, only say what would be written");
}

QVector<host::CropShape> CropOptions::shapes() const
{
    QVector<host::CropShape> shapes;
    if (!ratios.empty())
        shapes = host::parseRatios(QString::fromStdString(ratios));
    for (const std::string& size : sizes)
        shapes.append(host::parseSize(QString::fromStdString(size)));
    return shapes;
}

VXCropConstraints CropOptions::constraints() const
{
    VXCropConstraints constraints;
    constraints.keep = parseAreas(keep, QStringLiteral("--keep"));
    constraints.avoid = parseAreas(avoid, QStringLiteral("--avoid"));
    if (!focus.empty())
        constraints.focus = parsePoint(QString::fromStdString(focus));
    return constraints;
}

host::CropRules CropOptions::rules(const AnalysisOptions& analysis) const
{
    host::CropRules rules { analysis.rules() };
    rules.ifExists = ifExistsCalled(ifExists);
    rules.upscales = upscale;
    rules.isDryRun = dryRun;
    rules.makesFolders = host::OutputName(QString::fromStdString(output)).hasPlaces();
    return rules;
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
    add("--keep", keep, "an area that the crop should hold, in pixels");
    add("--avoid", avoid, "an area that the crop should leave out, in pixels");
}

QVector<QRect> parseAreas(const std::vector<std::string>& texts, const QString& option)
{
    QVector<QRect> areas;
    for (const std::string& text : texts)
        areas.append(parseArea(QString::fromStdString(text), option));
    return areas;
}

QRect parseArea(const QString& text, const QString& option)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(\A(-?[0-9]{1,9}),(-?[0-9]{1,9}),([0-9]{1,9}),([0-9]{1,9})\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QRect area(match.captured(1).toInt(), match.captured(2).toInt(),
        match.captured(3).toInt(), match.captured(4).toInt());
    if (!match.hasMatch() || area.isEmpty())
        throw HostError(ExitCode::Usage, QStringLiteral("%1 %2").arg(option, text),
            QStringLiteral("not an area"),
            QStringLiteral("write left, top, width and height in pixels, such as 10,20,300,200"));
    return area;
}

QPointF parsePoint(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    std::array<bool, 2> areNumbers {};
    const QPointF point(
        parts.value(0).toDouble(&areNumbers.at(0)), parts.value(1).toDouble(&areNumbers.at(1)));
    const bool isInside = point.x() >= 0 && point.x() <= 1 && point.y() >= 0 && point.y() <= 1;
    if (parts.size() != 2 || !areNumbers.at(0) || !areNumbers.at(1) || !isInside)
        throw HostError(ExitCode::Usage, QStringLiteral("--focus %1").arg(text),
            QStringLiteral("not a point"),
            QStringLiteral("write two numbers from 0 to 1, such as 0.5,0.33"));
    return point;
}

} // namespace vxroi
