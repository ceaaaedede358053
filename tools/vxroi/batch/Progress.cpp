#include "Progress.h"

#include "host/StandardStreams.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unistd.h>

namespace vxroi {

namespace {

constexpr qint64 barMilliseconds = 100;
constexpr qint64 lineMilliseconds = 10'000;
constexpr int barCells = 24;
const char* const clearLine = "\r\x1b[K";

QString minutesAndSeconds(double seconds)
{
    const auto whole = static_cast<qint64>(std::llround(seconds));
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

Progress::Progress(qint64 pictureTotal, bool quiet)
    : total(pictureTotal)
    , isQuiet(quiet)
    , isTerminal(isatty(host::errorDescriptor()) == 1)
{
    sinceStart.start();
    sinceShown.start();
}

void Progress::add(Outcome outcome, const std::string& problem)
{
    ++counts[static_cast<std::size_t>(outcome)];
    if (!problem.empty())
        say(problem);
    if (!isQuiet && sinceShown.elapsed() >= (isTerminal ? barMilliseconds : lineMilliseconds))
        show();
}

void Progress::say(const std::string& line) const
{
    if (!isQuiet)
        host::writeError((isTerminal ? clearLine : "") + line);
}

qint64 Progress::count() const
{
    return std::accumulate(counts.begin(), counts.end(), qint64 { 0 });
}

void Progress::finish(qint64 dropped)
{
    const bool isResumed = dropped >= 0;
    QStringList parts;
    const auto add = [&parts](qint64 number, const char* what) {
        parts.append(QStringLiteral("%1 %2").arg(number).arg(QLatin1String(what)));
    };
    if (isResumed)
        add(count(Outcome::Kept), "kept");
    add(count(Outcome::Done), "done");
    if (isResumed)
        add(count(Outcome::Retried), "retried");
    add(count(Outcome::Failed), "failed");
    if (isResumed)
        add(dropped, "dropped");
    const QString time = minutesAndSeconds(static_cast<double>(sinceStart.elapsed()) / 1000);
    say(QStringLiteral("vxroi: %1, in %2\n")
            .arg(parts.join(QStringLiteral(", ")), time)
            .toStdString());
}

void Progress::show()
{
    sinceShown.restart();
    host::writeError(isTerminal ? clearLine + (bar() + state()).toStdString()
                                : "vxroi: " + state().toStdString() + '\n');
}

QString Progress::state() const
{
    const double seconds = static_cast<double>(std::max<qint64>(sinceStart.elapsed(), 1)) / 1000;
    const double rate = static_cast<double>(count() - count(Outcome::Kept)) / seconds;
    QString text
        = total < 0 ? QString::number(count()) : QStringLiteral("%1 of %2").arg(count()).arg(total);
    text += QStringLiteral(", %1 a second").arg(rate, 0, 'f', 1);
    if (total >= 0 && rate > 0)
        text += QStringLiteral(", %1 left")
                    .arg(minutesAndSeconds(static_cast<double>(total - count()) / rate));
    return text + QStringLiteral(", %1 failed").arg(count(Outcome::Failed));
}

QString Progress::bar() const
{
    if (total <= 0)
        return QString();
    const auto filled = static_cast<int>(count() * barCells / total);
    return QStringLiteral("[%1%2] ").arg(
        QString(filled, QLatin1Char('#')), QString(barCells - filled, QLatin1Char('-')));
}

} // namespace vxroi
