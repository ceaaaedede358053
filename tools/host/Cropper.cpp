#include "Cropper.h"

#include "SalienceSettings.h"
#include "picture/PictureWriter.h"

#include <QDir>
#include <QFileInfo>
#include <QSemaphoreReleaser>

#include <algorithm>
#include <deque>
#include <new>

namespace host {

namespace {

constexpr qint64 thousand = 1000;

[[noreturn]] void throwIsThere(const QString& output)
{
    throw HostError(ExitCode::CannotCreate, output, QStringLiteral("is there already"),
        QStringLiteral("choose another name, or --if-exists overwrite or skip"));
}

} // namespace

Cropper::Cropper(const CropRules& cropRules, qint64 pixelsAtOnce)
    : rules(cropRules)
    , budget(static_cast<int>(std::clamp<qint64>(pixelsAtOnce / thousand, 1, 1 << 30)))
    , unusedBudget(budget)
{
}

CropRecord Cropper::crop(const CropTask& task)
{
    CropRecord record;
    record.path = task.path;
    record.settings
        = task.map.isEmpty() ? textOf(rules.analysis.salience) : QStringLiteral("map=") + task.map;
    record.failure = task.failure;
    if (record.failure)
        return record;
    try {
        plan(record, task);
        try {
            fill(record, task);
        } catch (const HostError&) {
            refuseForeignOutputs(task);
            throw;
        }
    } catch (const HostError& error) {
        record.failure = error;
    } catch (const std::bad_alloc&) {
        record.failure = HostError(ExitCode::Internal, task.path,
            QStringLiteral("there is not enough memory for it"),
            QStringLiteral("crop fewer pictures at once, or smaller ones"));
    }
    if (record.failure)
        record.crops.clear();
    return record;
}

void Cropper::plan(CropRecord& record, const CropTask& task) const
{
    for (int i = 0; i < task.shapes.size(); ++i) {
        CropResult crop;
        crop.shape = task.shapes.at(i).name;
        crop.outputPath = task.outputs.value(i);
        if (!crop.outputPath.isEmpty()) {
            refuseToOverwriteInput(task.path, crop.outputPath);
            if (!task.map.isEmpty())
                refuseToOverwriteInput(task.map, crop.outputPath);
            requireReplaceable(crop.outputPath);
            requireKnownFormat(crop.outputPath);
        }
        crop.written = planFor(crop.outputPath);
        record.crops.append(crop);
    }
}

// An earlier run wrote no output of a picture that fails: what is there was there before, and would
// have been refused first.
void Cropper::refuseForeignOutputs(const CropTask& task) const
{
    for (const QString& output : task.outputs) {
        if (rules.isResumed && rules.ifExists == IfExists::Fail && QFileInfo::exists(output))
            throwIsThere(output);
    }
}

void Cropper::fill(CropRecord& record, const CropTask& task)
{
    PictureFile picture(task.path, rules.analysis.reading);
    record.format = picture.format();
    record.stored = picture.storedSize();
    record.oriented = picture.orientedSize();
    record.orientation = picture.orientation();

    const qint64 pixelCount = qint64 { record.stored.width() } * record.stored.height();
    const int needed = static_cast<int>(std::min<qint64>(pixelCount / thousand + 1, budget));
    unusedBudget.acquire(needed);
    const QSemaphoreReleaser releaser(unusedBudget, needed);

    const VXCrop analysis = task.map.isEmpty()
        ? analysisOf(picture, rules.analysis.salience)
        : analysisFromMap(task.map, record.oriented, rules.analysis.reading, record.warnings);
    choose(record, task, analysis, picture);
    write(record, picture);
    record.warnings += picture.warnings();
}

void Cropper::choose(CropRecord& record, const CropTask& task, const VXCrop& analysis,
    const PictureFile& picture) const
{
    const VXCropConstraints constraints = within(analysis.pictureSize(), task.constraints);
    for (int i = 0; i < task.shapes.size(); ++i) {
        CropResult& crop = record.crops[i];
        crop.chosen = analysis.window(task.shapes.at(i).ratio, constraints);
        const QRect& window = crop.chosen.window;
        crop.stored = picture.toStored(window);
        crop.outputSize = task.shapes.at(i).outputSize(window.size(), rules.upscales);
        const qint64 pixels = qint64 { crop.outputSize.width() } * crop.outputSize.height();
        if (pixels > rules.analysis.reading.mostPixels)
            throw HostError(ExitCode::Usage, crop.shape,
                QStringLiteral("more pixels than are allowed"),
                QStringLiteral("allow them with --max-pixels %1").arg(pixels));
    }
}

Written Cropper::planFor(const QString& output) const
{
    if (output.isEmpty())
        return Written::Nothing;
    const bool exists = QFileInfo::exists(output);
    if (exists && !rules.isResumed)
        return planForOtherContent(output);
    return rules.isDryRun ? Written::Planned : Written::File;
}

Written Cropper::planForOtherContent(const QString& output) const
{
    if (rules.ifExists == IfExists::Fail)
        throwIsThere(output);
    if (rules.ifExists == IfExists::Skip)
        return Written::Skipped;
    return rules.isDryRun ? Written::Planned : Written::File;
}

void Cropper::write(CropRecord& record, PictureFile& picture) const
{
    QVector<CropResult*> crops;
    QVector<Cut> cuts;
    for (CropResult& crop : record.crops) {
        if (crop.written != Written::File)
            continue;
        crops.append(&crop);
        cuts.append({ crop.chosen.window, crop.outputSize });
    }
    if (crops.isEmpty())
        return;
    const QVector<vips::VImage> pictures = picture.readCuts(cuts);
    std::deque<PictureWriter> files;
    for (int i = 0; i < crops.size(); ++i) {
        CropResult& crop = *crops.at(i);
        if (rules.makesFolders)
            QDir().mkpath(QFileInfo(crop.outputPath).path());
        files.emplace_back(pictures.at(i), crop.outputPath);
        if (files.back().differsFromExisting())
            crop.written = planForOtherContent(crop.outputPath);
        if (crop.written != Written::File)
            files.pop_back();
    }
    for (PictureWriter& file : files)
        file.commit();
}

} // namespace host
