#include "AnalysisOptions.h"

#include "Checks.h"
#include "HelpSection.h"
#include "SalienceOptions.h"

namespace vxroi {

namespace {

const char* const group = "Analysis";

// Options are applied in the order in which they are added here, so a preset applies before --weight and --tune,
// wherever it stands on the command line.
void addSalienceOptions(CLI::App& command, VXCropSettings& salience)
{
    const auto take = [&salience](const std::string& preset) {
        salience = presetCalled(QString::fromStdString(preset));
    };
    command.add_option_function<std::string>("--preset", take, "the weights of the methods")
        ->type_name("PRESET")
        ->default_str("photo")
        ->group(group);
    const auto weigh = [&salience](const std::string& weight) {
        setWeight(salience, QString::fromStdString(weight));
    };
    addRepeated(command, "--weight", weigh, "the weight of one method; 0 switches it off")
        ->type_name("METHOD=N")
        ->group(group);
    const auto set = [&salience](const std::string& setting) {
        tune(salience, QString::fromStdString(setting));
    };
    addRepeated(command, "--tune", set, "one setting of the histogram method")
        ->type_name("SETTING=N")
        ->group(group);
}

void addReadingOptions(CLI::App& command, host::ReadingRules& reading)
{
    constexpr qint64 mostOfAnything = 1'000'000'000'000;
    const auto limit = [&](const char* name, auto& value, qint64 most, const char* text) {
        command.add_option(name, value, text)
            ->type_name("N")
            ->check(wholeNumber(1, most))
            ->capture_default_str()
            ->group(group);
    };
    limit("--max-pixels", reading.mostPixels, mostOfAnything, "refuse pictures with more pixels");
    limit("--max-bytes", reading.mostBytes, mostOfAnything, "refuse larger files");
    limit("--max-seconds", reading.mostSeconds, 1'000'000,
        "give up on a picture after so many seconds");
    addChoice<host::OnBroken>(command, "--on-broken", reading.onBroken,
        { { "error", host::OnBroken::Error }, { "warn", host::OnBroken::Warn } },
        "what to do with a damaged picture: error, or warn and use the rest")
        ->group(group);
}

} // namespace

void AnalysisOptions::addTo(CLI::App& command)
{
    addSalienceOptions(command, rules.salience);
    addReadingOptions(command, rules.reading);
    addHelpSection(command, "Presets", explainedPresets());
    addHelpSection(command, "Methods", explainedMethods());
    addHelpSection(command, "Settings", explainedTunings());
}

} // namespace vxroi
