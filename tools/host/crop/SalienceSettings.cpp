#include "SalienceSettings.h"

#include "host/HostError.h"
#include "host/Suggestion.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

using HistogramTuning = VXCropSettings::HistogramTuning;

struct Preset {
    const char* name;
    const char* text;
    VXCropSettings (*settings)();
};

constexpr std::array<Preset, 2> presets { {
    { "photo", "for photographs: what differs from what the border shows", VXCropSettings::photo },
    { "library", "the weights that the library's own blend of four methods comes with",
        VXCropSettings::library },
} };

template <typename Value> struct Setting {
    const char* name;
    const char* text;
    Value HistogramTuning::*value;
    Value least;
    Value most;
};

constexpr std::array<Setting<int>, 4> wholeSettings { {
    { "bins1", "bins of the blue difference, the first channel", &HistogramTuning::bins1, 1, 256 },
    { "bins2", "bins of the red difference, the second channel", &HistogramTuning::bins2, 1, 256 },
    { "columns", "blocks across the picture", &HistogramTuning::columns, 1, 100 },
    { "rows", "blocks down the picture", &HistogramTuning::rows, 1, 100 },
} };

constexpr std::array<Setting<double>, 3> realSettings { {
    { "threshold", "up to which difference blocks are merged", &HistogramTuning::threshold, 0.0,
        1e6 },
    { "min-width", "least width of a region that counts, as a share of the picture",
        &HistogramTuning::minWidth, 0.0, 1.0 },
    { "min-height", "least height of a region that counts, as a share of the picture",
        &HistogramTuning::minHeight, 0.0, 1.0 },
} };

// "name=value", taken apart at the sign.
struct Assignment {
    explicit Assignment(const QString& text)
        : name(text.section(QLatin1Char('='), 0, 0))
        , value(text.section(QLatin1Char('='), 1))
    {
    }

    QString name;
    QString value;
};

int numberIn(const QString& text, bool& isNumber, int /*kind*/) { return text.toInt(&isNumber); }

double numberIn(const QString& text, bool& isNumber, double /*kind*/)
{
    return text.toDouble(&isNumber);
}

// The entry of that name; none when the table has none.
template <typename Table> auto find(const Table& table, const QString& name)
{
    const auto found = std::find_if(table.begin(), table.end(),
        [&](const auto& entry) { return name == QLatin1String(entry.name); });
    return found == table.end() ? nullptr : &*found;
}

// Nothing when the name is not in the table.
template <typename Table>
bool assign(const Table& table, const Assignment& assignment, HistogramTuning& tuning)
{
    const auto* const found = find(table, assignment.name);
    if (found == nullptr)
        return false;
    bool isNumber = false;
    const auto value = numberIn(assignment.value, isNumber, found->least);
    if (!isNumber || !(value >= found->least && value <= found->most))
        throw HostError(ExitCode::Usage,
            QStringLiteral("--tune %1=%2").arg(assignment.name, assignment.value),
            QStringLiteral("not a number from %1 to %2").arg(found->least).arg(found->most),
            QStringLiteral("write one, such as %1=%2")
                .arg(assignment.name)
                .arg(HistogramTuning().*(found->value)));
    tuning.*(found->value) = value;
    return true;
}

template <typename Table> QStringList namesIn(const Table& table)
{
    QStringList names;
    for (const auto& entry : table)
        names.append(QLatin1String(entry.name));
    return names;
}

template <typename Table> QVector<Explanation> explained(const Table& settings)
{
    const auto number = [](double value) { return QString::number(value, 'g', 7); };
    QVector<Explanation> explanations;
    for (const auto& setting : settings)
        explanations.append({ QLatin1String(setting.name),
            QStringLiteral("%1, %2 to %3 (default: %4)")
                .arg(QLatin1String(setting.text), number(setting.least), number(setting.most),
                    number(HistogramTuning().*setting.value)) });
    return explanations;
}

bool haveSameWeights(const VXCropSettings& one, const VXCropSettings& other)
{
    const auto& methods = VXCropSettings::methods();
    return std::all_of(methods.begin(), methods.end(), [&](const VXCropSettings::Method& method) {
        return one.*method.weight == other.*method.weight;
    });
}

// The preset's name, or the weights of the methods that are on.
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

// The settings in a table that are not as they come.
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

VXCropSettings presetCalled(const QString& name)
{
    if (const Preset* const preset = find(presets, name))
        return preset->settings();
    throw HostError(ExitCode::Usage, QStringLiteral("--preset %1").arg(name),
        QStringLiteral("no such preset"), suggestion(name, presetNames()));
}

QStringList presetNames() { return namesIn(presets); }

QVector<Explanation> explainedPresets()
{
    QVector<Explanation> explanations;
    for (const Preset& preset : presets)
        explanations.append({ QLatin1String(preset.name), QLatin1String(preset.text) });
    return explanations;
}

QVector<Explanation> explainedMethods()
{
    QVector<Explanation> explanations;
    for (const VXCropSettings::Method& method : VXCropSettings::methods())
        explanations.append({ QLatin1String(method.name), QLatin1String(method.finds) });
    return explanations;
}

QVector<Explanation> explainedTunings()
{
    return explained(wholeSettings) + explained(realSettings);
}

VXCropSettings withoutMethods()
{
    VXCropSettings settings;
    for (const VXCropSettings::Method& method : VXCropSettings::methods())
        settings.*method.weight = 0;
    return settings;
}

void setWeight(VXCropSettings& settings, const QString& text)
{
    const Assignment assignment(text);
    const VXCropSettings::Method* const method = find(VXCropSettings::methods(), assignment.name);
    const QString subject = QStringLiteral("--weight %1").arg(text);
    if (method == nullptr)
        throw HostError(ExitCode::Usage, subject, QStringLiteral("no such method"),
            suggestion(assignment.name, namesIn(VXCropSettings::methods())));
    constexpr int mostWeight = 1000;
    bool isNumber = false;
    const int weight = assignment.value.toInt(&isNumber);
    if (!isNumber || weight < -mostWeight || weight > mostWeight)
        throw HostError(ExitCode::Usage, subject,
            QStringLiteral("not a weight from %1 to %2").arg(-mostWeight).arg(mostWeight),
            QStringLiteral("write one, such as %1=20").arg(assignment.name));
    settings.*method->weight = weight;
}

void tune(VXCropSettings& settings, const QString& text)
{
    const Assignment assignment(text);
    const bool isKnown = assign(wholeSettings, assignment, settings.tuning)
        || assign(realSettings, assignment, settings.tuning);
    if (!isKnown)
        throw HostError(ExitCode::Usage, QStringLiteral("--tune %1").arg(text),
            QStringLiteral("the histogram method has no such setting"),
            suggestion(assignment.name, namesIn(wholeSettings) + namesIn(realSettings)));
}

QString textOf(const VXCropSettings& settings)
{
    const QStringList parts = QStringList { weightsText(settings) }
        + changesOf(wholeSettings, settings.tuning) + changesOf(realSettings, settings.tuning);
    return parts.join(QLatin1Char(' '));
}

} // namespace host
