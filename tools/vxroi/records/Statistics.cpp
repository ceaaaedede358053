#include "Statistics.h"

#include "vxroi/inputs/ListReader.h"

#include "host/HostError.h"
#include "host/records/CropWindow.h"
#include "host/records/Json.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

QJsonObject jsonOf(const QMap<QString, qint64>& counts)
{
    QJsonObject object;
    for (auto count = counts.begin(); count != counts.end(); ++count)
        object.insert(count.key(), count.value());
    return object;
}

double toMilliseconds(double seconds) { return std::round(seconds * 1000) / 1000; }

// The smallest value that at least \a share of all values do not exceed.
double quantile(std::vector<double> values, double share)
{
    const auto rank
        = static_cast<std::ptrdiff_t>(std::ceil(share * static_cast<double>(values.size()))) - 1;
    const auto place = values.begin() + std::max<std::ptrdiff_t>(rank, 0);
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

} // namespace

void Statistics::add(const host::CropRecord& record)
{
    const QString map = QStringLiteral("map");
    ++settings[record.settings.startsWith(map + QLatin1Char('=')) ? map : record.settings];
    warningCount += record.warnings.size();
    if (record.failure) {
        ++failures[{ static_cast<int>(record.failure->code()), record.failure->reason() }];
        return;
    }
    ++okCount;
    for (const host::CropResult& crop : record.crops)
        add(crop);
}

void Statistics::add(const host::CropResult& crop)
{
    ++cropCount;
    if (crop.state != host::OutputState::None)
        ++outputs[host::nameOf(crop.state)];
    if (crop.chosen.window.isNull())
        return;
    ++windowCount;
    ++reasons[host::nameOf(crop.chosen.reason)];
    salience += crop.chosen.salience;
    centreSalience += crop.chosen.centreSalience;
}

QJsonObject Statistics::toJson() const
{
    QJsonArray byReason;
    qint64 failedCount = 0;
    for (auto failure = failures.begin(); failure != failures.end(); ++failure) {
        byReason.append(QJsonObject { { QStringLiteral("code"), failure.key().first },
            { QStringLiteral("reason"), failure.key().second },
            { QStringLiteral("pictures"), failure.value() } });
        failedCount += failure.value();
    }
    QJsonObject object { { QStringLiteral("pictures"), okCount + failedCount },
        { QStringLiteral("ok"), okCount }, { QStringLiteral("failed"), failedCount },
        { QStringLiteral("failures"), byReason }, { QStringLiteral("crops"), cropCount },
        { QStringLiteral("decidedBy"), jsonOf(reasons) },
        { QStringLiteral("outputs"), jsonOf(outputs) },
        { QStringLiteral("warnings"), warningCount },
        { QStringLiteral("settings"), jsonOf(settings) } };
    if (windowCount > 0) {
        const auto windows = static_cast<double>(windowCount);
        object.insert(QStringLiteral("meanSalience"), host::roundedShare(salience / windows));
        object.insert(
            QStringLiteral("meanCentreSalience"), host::roundedShare(centreSalience / windows));
    }
    return object;
}

void TimingStatistics::add(const QString& path)
{
    ListReader lines(path, '\n');
    const auto before = seconds.size();
    double end = 0;
    while (const std::optional<ListEntry> line = lines.waitForNext()) {
        const QJsonObject timing = host::parseObject(line->bytes).object;
        const double taken = timing.value(QLatin1String("seconds")).toDouble(-1);
        const double at = timing.value(QLatin1String("at")).toDouble(-1);
        if (taken < 0 || at < 0)
            throw HostError(ExitCode::UnreadableInput, lines.placeOf(*line),
                QStringLiteral("is not a timing"),
                QStringLiteral("name a file that vxroi batch --timings has written"));
        seconds.push_back(taken);
        end = std::max(end, at);
        if (taken >= longestSeconds) {
            longestSeconds = taken;
            longest = timing.value(QLatin1String("path")).toString();
        }
    }
    if (end > 0)
        picturesPerSecond += static_cast<double>(seconds.size() - before) / end;
}

QJsonObject TimingStatistics::toJson() const
{
    constexpr double percentile95 = 0.95;
    return { { QStringLiteral("pictures"), static_cast<qint64>(seconds.size()) },
        { QStringLiteral("picturesPerSecond"), std::round(picturesPerSecond * 10) / 10 },
        { QStringLiteral("medianSeconds"), toMilliseconds(quantile(seconds, 0.5)) },
        { QStringLiteral("seconds95"), toMilliseconds(quantile(seconds, percentile95)) },
        { QStringLiteral("longestSeconds"), toMilliseconds(longestSeconds) },
        { QStringLiteral("longest"), longest } };
}

} // namespace vxroi
