#include "SalienceSettings.h"

#include "HostError.h"

#include <VXRegionOfInterest/VXAbstractROI.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <algorithm>
#include <array>
#include <optional>

namespace host {

namespace {

using Weights = SalienceSettings::Weights;
using HistogramTuning = SalienceSettings::HistogramTuning;

struct Preset {
    const char* name = nullptr;
    Weights weights;
};

// The first keeps more of what people look at than the centre does; docs/presets.md has the scores.
// The second has the weights that a mixer comes with.
constexpr std::array<Preset, 2> presets { {
    { "photo", { 0, 20, 0, 10 } },
    { "library", { 20, 2, -10, 10 } },
} };

struct Method {
    const char* name;
    VXSalienzMethod method;
    int Weights::*weight;
};

constexpr std::array<Method, 4> methods { {
    { "sobel", Sobel, &Weights::sobel },
    { "gauss", Gauss, &Weights::gauss },
    { "histogram", Histogram, &Weights::histogram },
    { "achanta", Achanta, &Weights::achanta },
} };

template <typename Value> struct Setting {
    const char* name;
    Value HistogramTuning::*value;
    Value least;
    Value most;
};

constexpr std::array<Setting<int>, 4> wholeSettings { {
    { "bins1", &HistogramTuning::bins1, 1, 256 },
    { "bins2", &HistogramTuning::bins2, 1, 256 },
    { "columns", &HistogramTuning::columns, 1, 100 },
    { "rows", &HistogramTuning::rows, 1, 100 },
} };

constexpr std::array<Setting<double>, 3> realSettings { {
    { "threshold", &HistogramTuning::threshold, 0.0, 1e6 },
    { "min-width", &HistogramTuning::minWidth, 0.0, 1.0 },
    { "min-height", &HistogramTuning::minHeight, 0.0, 1.0 },
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

// Nothing when the name is not in the table.
template <typename Table>
bool assign(const Table& table, const Assignment& assignment, HistogramTuning& tuning)
{
    const auto found = std::find_if(table.begin(), table.end(),
        [&](const auto& setting) { return assignment.name == QLatin1String(setting.name); });
    if (found == table.end())
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

} // namespace

SalienceSettings SalienceSettings::preset(const QString& name)
{
    for (const Preset& preset : presets) {
        if (name == QLatin1String(preset.name))
            return { preset.weights, {} };
    }
    throw HostError(ExitCode::Usage, QStringLiteral("--preset %1").arg(name),
        QStringLiteral("no such preset"),
        QStringLiteral("choose %1").arg(presetNames().join(QStringLiteral(" or "))));
}

QStringList SalienceSettings::presetNames() { return namesIn(presets); }

void SalienceSettings::setWeight(const QString& text)
{
    constexpr int mostWeight = 1000;
    const Assignment assignment(text);
    bool isNumber = false;
    const int weight = assignment.value.toInt(&isNumber);
    for (const Method& method : methods) {
        const bool isMeant = assignment.name == QLatin1String(method.name);
        if (isMeant && isNumber && weight >= -mostWeight && weight <= mostWeight) {
            weights.*(method.weight) = weight;
            return;
        }
    }
    throw HostError(ExitCode::Usage, QStringLiteral("--weight %1").arg(text),
        QStringLiteral("not a method and a weight from -1000 to 1000"),
        QStringLiteral("write one such as gauss=20, of %1")
            .arg(namesIn(methods).join(QStringLiteral(", "))));
}

void SalienceSettings::tune(const QString& text)
{
    const Assignment assignment(text);
    const bool isKnown = assign(wholeSettings, assignment, histogram)
        || assign(realSettings, assignment, histogram);
    if (!isKnown)
        throw HostError(ExitCode::Usage, QStringLiteral("--tune %1").arg(text),
            QStringLiteral("the histogram method has no such setting"),
            QStringLiteral("write one such as bins1=32, of %1")
                .arg((namesIn(wholeSettings) + namesIn(realSettings)).join(QStringLiteral(", "))));
}

void SalienceSettings::configure(VXSalienzMixer& mixer) const
{
    for (const Method& method : methods) {
        const int weight = weights.*(method.weight);
        // The object's own weight, because the mixer turns the sign of the histogram method's.
        mixer.roiMethod(method.method)->setWeight(weight);
        mixer.setMethodEnabled(method.method, weight != 0);
    }
    mixer.updateHistogramBinsChannel1(histogram.bins1);
    mixer.updateHistogramBinsChannel2(histogram.bins2);
    mixer.updateHistogramChiSquareThreshold(histogram.threshold);
    mixer.updateHistogramHorizontalBlocks(histogram.columns);
    mixer.updateHistogramVerticalBlocks(histogram.rows);
    mixer.updateHistogramMinWidth(histogram.minWidth);
    mixer.updateHistogramMinHeight(histogram.minHeight);
}

} // namespace host
