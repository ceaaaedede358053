#include "Batch.h"

#include "BatchSetup.h"
#include "vxroi/concurrency/Interruption.h"

#include "host/FileName.h"
#include "host/StandardStreams.h"
#include "host/picture/Engine.h"
#include "vxroi/options/CommonOptions.h"

#include <QElapsedTimer>

#include <utility>

namespace vxroi {

namespace {

using host::CropRecord;
using host::ExitCode;
using host::HostError;

std::string problemOf(const QString& place, const HostError& failure)
{
    const std::string where
        = place.isEmpty() ? std::string() : host::bytesOfName(place).toStdString() + ": ";
    return "vxroi: " + where + failure.what() + '\n';
}

} // namespace

Batch::Batch(const BatchArguments& arguments)
    : inputs(inputsOf(arguments))
    , plan(planOf(arguments))
    , records(recordsOf(arguments))
    , ownOutputs(ownOutputsOf(arguments, records))
    , rules(rulesOf(arguments, ownOutputs))
    , cropper(rules, arguments.analysis.rules.reading.mostPixels)
    , printer(arguments.printer)
    , progress(inputs->count(), arguments.quiet)
    , isStream(arguments.from == "-")
    , work(arguments.jobs > 0 ? arguments.jobs : defaultWorkerCount(), [this] { wakeup.notify(); })
{
    if (records)
        resumption.emplace(records->earlier(), *ownOutputs, arguments.retry, rules);
    if (!arguments.timings.empty())
        timings.emplace(pathFrom(arguments.timings));
}

ExitCode Batch::run()
{
    reportDamage();
    // Started before the first line of a stream arrives, so that it need not wait. Started in the main thread, because
    // the C library keeps memory about each module that it fails to load until the loading thread ends.
    if (!inputs->isAtEnd())
        host::startEngine();
    const Interruption interruption(wakeup);
    while (!Interruption::isRequested() && !inputs->isAtEnd())
        step();
    while (!work.isEmpty())
        finishOne();
    if (Interruption::isRequested())
        throw HostError(ExitCode::Interrupted, QStringLiteral("interrupted"),
            progress.count() == 1
                ? QStringLiteral("one picture has its record")
                : QStringLiteral("%1 pictures have their records").arg(progress.count()),
            QStringLiteral("run it again with --resume to do the rest"));
    finishRecords();
    printSummary();
    return progress.count(Outcome::Failed) > 0 ? ExitCode::SomeFailed : ExitCode::Success;
}

void Batch::finishRecords()
{
    if (!isResumed())
        return;
    const QStringList former = records->formerOutputs();
    records->finish();
    ownOutputs->finish(former, namedOutputs);
}

// A finished answer is written before more input is read, so that a client that waits for it before it sends the next
// line gets it.
void Batch::step()
{
    if (!work.isEmpty() && (work.isFull() || work.isFirstDone()))
        finishOne();
    else if (const std::optional<Input> input = inputs->next())
        begin(*input);
    else if (!inputs->isAtEnd())
        wakeup.wait(inputs->descriptor());
}

void Batch::begin(const Input& input)
{
    PlannedTask planned = plan.plan(input);
    while (isStream && !claims.areFree(planned))
        finishOne();
    claims.claim(planned);
    if (isResumed())
        records->earlier().markSeen(input.path);
    filesInProgress.push_back(planned.files);
    work.begin([this, planned = std::move(planned)]() -> std::optional<Answer> {
        if (Interruption::isRequested())
            return std::nullopt;
        return answer(planned);
    });
}

Batch::Answer Batch::answer(const PlannedTask& planned)
{
    QElapsedTimer timer;
    timer.start();
    host::CropTask task = planned.task;
    Answer answer { task.path };
    const EarlierResult earlier
        = isResumed() && !task.failure ? resumption->earlierResultOf(task) : EarlierResult();
    if (earlier.record) {
        answer.kept = *earlier.place;
        answer.outputs = earlier.record->writtenOutputs();
        if (printer.isRequested())
            answer.printed = printer.linesOf(*earlier.record);
        answer.outcome = earlier.hasFailed ? Outcome::Failed : Outcome::Kept;
        return answer;
    }
    task.ownOutputs = earlier.ownOutputs;
    const CropRecord record = cropper.crop(task);
    answer.record = record.toJson() + '\n';
    answer.printed = printer.linesOf(record);
    answer.outputs = record.writtenOutputs();
    answer.outcome = earlier.hasFailed ? Outcome::Retried : Outcome::Done;
    if (record.failure) {
        answer.outcome = Outcome::Failed;
        answer.problem = problemOf(planned.place, *record.failure);
    }
    answer.seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    return answer;
}

void Batch::finishOne()
{
    const std::optional<Answer> answer = work.finishFirst();
    if (isStream)
        claims.release(filesInProgress.front());
    filesInProgress.pop_front();
    wasCutShort = wasCutShort || !answer;
    if (wasCutShort)
        return;
    write(*answer);
    if (timings && !answer->record.isEmpty())
        timings->write(answer->path, answer->seconds);
    progress.add(answer->outcome, answer->problem);
}

void Batch::write(const Answer& answer)
{
    if (!isResumed() || printer.isRequested())
        host::writeOutput(answer.printed);
    if (!isResumed())
        return;
    if (answer.record.isEmpty())
        records->keep(answer.kept);
    else
        records->write(answer.record);
    namedOutputs += QSet<QString>(answer.outputs.begin(), answer.outputs.end());
}

void Batch::reportDamage()
{
    const qint64 bytes = isResumed() ? records->earlier().damagedBytes() : 0;
    if (bytes > 0)
        progress.say("vxroi: the records were damaged by a crash: " + std::to_string(bytes)
            + " bytes are skipped\n");
}

void Batch::printSummary()
{
    const qint64 dropped = isResumed() ? records->earlier().unseenCount() : -1;
    if (progress.count() == 0 && dropped <= 0)
        progress.say(
            "vxroi: " + host::bytesOfName(inputs->name()).toStdString() + ": nothing to do\n");
    else
        progress.finish(dropped);
}

} // namespace vxroi
