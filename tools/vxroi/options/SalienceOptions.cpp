#include "SalienceOptions.h"

#include "Suggestion.h"
#include "host/HostError.h"
#include "host/crop/SalienceSettings.h"

#include <algorithm>

namespace vxroi {

namespace {

using host::ExitCode;
using host::Explanation;
using host::HostError;
using HistogramTuning = VXCropSettings::HistogramTuning;

// "name=value", split at the equals sign.
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

// The entry called \a name; null when the table has none.
template <typename Table> auto find(const Table& table, const QString& name)
{
    const auto found = std::find_if(table.begin(), table.end(),
        [&](const auto& entry) { return name == QLatin1String(entry.name); });
    return found == table.end() ? nullptr : &*found;
}

// Sets the named setting; returns false when the table does not contain it.
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

} // namespace

VXCropSettings presetCalled(const QString& name)
{
    if (const host::Preset* const preset = find(host::presets, name))
        return preset->settings();
    throw HostError(ExitCode::Usage, QStringLiteral("--preset %1").arg(name),
        QStringLiteral("no such preset"), suggestion(name, presetNames()));
}

QStringList presetNames() { return namesIn(host::presets); }

QVector<Explanation> explainedPresets()
{
    QVector<Explanation> explanations;
    for (const host::Preset& preset : host::presets)
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
    return explained(host::wholeSettings) + explained(host::realSettings);
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
    const bool isKnown = assign(host::wholeSettings, assignment, settings.tuning)
        || assign(host::realSettings, assignment, settings.tuning);
    if (!isKnown)
        throw HostError(ExitCode::Usage, QStringLiteral("--tune %1").arg(text),
            QStringLiteral("the histogram method has no such setting"),
            suggestion(
                assignment.name, namesIn(host::wholeSettings) + namesIn(host::realSettings)));
}

} // namespace vxroi
