#include "SalienceSettings.h"

#include <QStringList>

#include <algorithm>

namespace host {

namespace {

using HistogramTuning = VXCropSettings::HistogramTuning;

bool haveSameWeights(const VXCropSettings& one, const VXCropSettings& other)
{
    const auto& methods = VXCropSettings::methods();
    return std::all_of(methods.begin(), methods.end(), [&](const VXCropSettings::Method& method) {
        return one.*method.weight == other.*method.weight;
    });
}

// The name of the preset, or the weights that are not 0.
QString weightsText(const VXCropSettings& settings)
{
    for (const Preset& preset : presets) {
        if (haveSameWeights(settings, preset.settings()))
            return QLatin1String(preset.name);
    }
    QStringList weights;
    for (const VXCropSettings::Method& method : VXCropSettings::methods()) {
        if (settings.*method.weight != 0)
            weights.append(QStringLiteral("%1=%2")
                               .arg(QLatin1String(method.name))
                               .arg(settings.*method.weight));
    }
    return weights.isEmpty() ? QStringLiteral("none") : weights.join(QLatin1Char(' '));
}

// The settings of a table that differ from their defaults.
template <typename Table> QStringList changesOf(const Table& table, const HistogramTuning& tuning)
{
    QStringList changes;
    for (const auto& setting : table) {
        if (tuning.*setting.value != HistogramTuning().*setting.value)
            changes.append(QStringLiteral("%1=%2")
                               .arg(QLatin1String(setting.name))
                               .arg(tuning.*setting.value));
    }
    return changes;
}

} // namespace

VXCropSettings withoutMethods()
{
    VXCropSettings settings;
    for (const VXCropSettings::Method& method : VXCropSettings::methods())
        settings.*method.weight = 0;
    return settings;
}

QString textOf(const VXCropSettings& settings)
{
    const QStringList parts = QStringList { weightsText(settings) }
        + changesOf(wholeSettings, settings.tuning) + changesOf(realSettings, settings.tuning);
    return parts.join(QLatin1Char(' '));
}

} // namespace host
