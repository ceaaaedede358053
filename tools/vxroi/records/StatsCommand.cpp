#include "StatsCommand.h"

#include "RecordLines.h"
#include "Statistics.h"

#include "host/FileName.h"
#include "host/StandardStreams.h"

#include "vxroi/options/Checks.h"
#include "vxroi/options/CommonOptions.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>

namespace vxroi {

namespace {

constexpr int labelWidth = 14;

class Table {
public:
    void row(const QString& label, const QString& value)
    {
        stream << label.leftJustified(labelWidth) << ' ' << value << '\n';
    }
    void row(const QString& label, const QJsonValue& number)
    {
        row(label, QString::number(number.toDouble()));
    }
    void rows(const QJsonObject& counts)
    {
        for (auto count = counts.begin(); count != counts.end(); ++count)
            row(QStringLiteral("  ") + host::onOneLine(count.key()), count.value());
    }

    QByteArray bytes()
    {
        stream.flush();
        return host::bytesOfName(text);
    }

private:
    QString text;
    QTextStream stream { &text };
};

QString valueIn(const QJsonObject& object, const char* key)
{
    return QString::number(object.value(QLatin1String(key)).toDouble());
}

void addRecords(Table& table, const QJsonObject& counts)
{
    table.row(QStringLiteral("pictures"), counts.value(QLatin1String("pictures")));
    table.row(QStringLiteral("ok"), counts.value(QLatin1String("ok")));
    table.row(QStringLiteral("failed"), counts.value(QLatin1String("failed")));
    const QJsonArray failures = counts.value(QLatin1String("failures")).toArray();
    for (const QJsonValue& failure : failures)
        table.row(QStringLiteral("  code ") + valueIn(failure.toObject(), "code"),
            QStringLiteral("%1  %2").arg(valueIn(failure.toObject(), "pictures"),
                failure.toObject().value(QLatin1String("reason")).toString()));
    table.row(QStringLiteral("crops"), counts.value(QLatin1String("crops")));
    table.rows(counts.value(QLatin1String("decidedBy")).toObject());
    table.rows(counts.value(QLatin1String("outputs")).toObject());
    if (counts.contains(QLatin1String("meanSalience")))
        table.row(QStringLiteral("salience kept"),
            QStringLiteral("%1 on average, %2 by the centre crop")
                .arg(valueIn(counts, "meanSalience"), valueIn(counts, "meanCentreSalience")));
    table.row(QStringLiteral("warnings"), counts.value(QLatin1String("warnings")));
    table.row(QStringLiteral("settings"), QString());
    table.rows(counts.value(QLatin1String("settings")).toObject());
}

void addTimings(Table& table, const QJsonObject& timings)
{
    table.row(QStringLiteral("timed"), timings.value(QLatin1String("pictures")));
    table.row(QStringLiteral("  a second"), timings.value(QLatin1String("picturesPerSecond")));
    table.row(QStringLiteral("  seconds each"),
        QStringLiteral("%1 median, %2 at 95 %, %3 longest: %4")
            .arg(valueIn(timings, "medianSeconds"), valueIn(timings, "seconds95"),
                valueIn(timings, "longestSeconds"),
                host::onOneLine(timings.value(QLatin1String("longest")).toString())));
}

} // namespace

void runStats(const StatsArguments& arguments)
{
    Statistics statistics;
    for (const std::string& result : arguments.results) {
        RecordLines records(pathFrom(result));
        while (const std::optional<host::CropRecord> record = records.next())
            statistics.add(*record);
    }
    TimingStatistics timings;
    for (const std::string& path : arguments.timings)
        timings.add(pathFrom(path));

    QJsonObject counts = statistics.toJson();
    if (!timings.isEmpty())
        counts.insert(QStringLiteral("timings"), timings.toJson());
    if (arguments.json) {
        host::writeOutput(QJsonDocument(counts).toJson(QJsonDocument::Compact) + '\n');
        return;
    }
    Table table;
    addRecords(table, counts);
    if (!timings.isEmpty())
        addTimings(table, counts.value(QLatin1String("timings")).toObject());
    host::writeOutput(table.bytes());
}

void addStatsCommand(CLI::App& app, StatsArguments& arguments)
{
    CLI::App* const stats = app.add_subcommand(
        "stats", "Summarise the records of batches: counts, reasons, pictures per second");
    stats->add_option("RESULTS", arguments.results, "files of records; - is standard input")
        ->required();
    const auto takeTimings
        = [&arguments](const std::string& path) { arguments.timings.push_back(path); };
    addRepeated(*stats, "--timings", takeTimings,
        "a file written by batch --timings; one for each batch that ran side by side")
        ->type_name("FILE")
        ->check(names("file"));
    stats->add_flag("--json", arguments.json, "print one object, as JSON");
    stats->callback([&arguments] { runStats(arguments); });
}

} // namespace vxroi
