#include "Progress.h"

#include "host/StandardError.h"

#include <algorithm>
#include <cmath>
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

void Progress::addKept(bool hasFailed)
{
    ++keptCount;
    ++doneCount;
    failedCount += hasFailed ? 1 : 0;
}

void Progress::addDone(const std::string& problem)
{
    ++doneCount;
    failedCount += problem.empty() ? 0 : 1;
    if (isQuiet)
        return;
    if (!problem.empty())
        host::writeError((isTerminal ? clearLine : "") + problem);
    if (sinceShown.elapsed() >= (isTerminal ? barMilliseconds : lineMilliseconds))
        show();
}

void Progress::finish()
{
    if (isQuiet)
        return;
    const QString summary
        = QStringLiteral("vxroi: %1 done, %2 failed, in %3\n")
              .arg(doneCount)
              .arg(failedCount)
              .arg(minutesAndSeconds(static_cast<double>(sinceStart.elapsed()) / 1000));
    host::writeError((isTerminal ? clearLine : "") + summary.toStdString());
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
    const double rate = static_cast<double>(doneCount - keptCount) / seconds;
    QString text = total < 0 ? QString::number(doneCount)
                             : QStringLiteral("%1 of %2").arg(doneCount).arg(total);
    text += QStringLiteral(", %1 a second").arg(rate, 0, 'f', 1);
    if (total >= 0 && rate > 0)
        text += QStringLiteral(", %1 left")
                    .arg(minutesAndSeconds(static_cast<double>(total - doneCount) / rate));
    return text + QStringLiteral(", %1 failed").arg(failedCount);
}

QString Progress::bar() const
{
    if (total <= 0)
        return QString();
    const auto filled = static_cast<int>(doneCount * barCells / total);
    return QStringLiteral("[%1%2] ").arg(
        QString(filled, QLatin1Char('#')), QString(barCells - filled, QLatin1Char('-')));
}

} // namespace vxroi
