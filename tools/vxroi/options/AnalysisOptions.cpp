#include "AnalysisOptions.h"

#include "Checks.h"
#include "HelpSection.h"
#include "ReadingOptions.h"
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

} // namespace

void AnalysisOptions::addTo(CLI::App& command)
{
    addSalienceOptions(command, rules.salience);
    addReadingOptions(command, rules.reading, group);
    addHelpSection(command, "Presets", explainedPresets());
    addHelpSection(command, "Methods", explainedMethods());
    addHelpSection(command, "Settings", explainedTunings());
}

} // namespace vxroi
