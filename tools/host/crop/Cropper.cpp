#include "Cropper.h"

#include "SalienceSettings.h"
#include "host/FileName.h"

#include <QDir>
#include <QFileInfo>
#include <QSemaphoreReleaser>

#include <algorithm>
#include <deque>
#include <new>
#include <utility>

namespace host {

namespace {

constexpr qint64 thousand = 1000;

// Whether every output already exists and is skipped.
bool isNothingToDo(const CropRecord& record)
{
    return std::all_of(record.crops.begin(), record.crops.end(),
        [](const CropResult& crop) { return crop.state == OutputState::Skipped; });
}

void warnOfLostFrames(CropRecord& record, const CropResult& crop, const WritingRules& rules)
{
    const Format& format = formatOf(crop.outputPath, rules);
    if (record.frames > 1 && !format.abilities.testFlag(Ability::Frames))
        record.warnings.append(QStringLiteral("animated: %1 holds only the first frame")
                                   .arg(QLatin1String(format.name)));
}

} // namespace

Cropper::Cropper(CropRules cropRules, qint64 pixelsAtOnce)
    : rules(std::move(cropRules))
    , budget(static_cast<int>(std::clamp<qint64>(pixelsAtOnce / thousand, 1, 1 << 30)))
    , unusedBudget(budget)
{
}

CropRecord Cropper::crop(const CropTask& task, const Look& look)
{
    CropRecord record;
    record.path = task.path;
    record.settings
        = task.map.isEmpty() ? textOf(rules.analysis.salience) : QStringLiteral("map=") + task.map;
    record.request = task.request;
    record.failure = task.failure;
    if (record.failure)
        return record;
    record.file = stateOf(task.path, rules.knownBy);
    if (!task.map.isEmpty())
        record.mapFile = stateOf(task.map, rules.knownBy);
    try {
        plan(record, task);
        fill(record, task, look);
    } catch (const HostError& error) {
        record.failure = error;
    } catch (const std::bad_alloc&) {
        record.failure
            = HostError(ExitCode::Internal, task.path, QStringLiteral("there is not enough memory"),
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
            requireKnownFormat(crop.outputPath, rules.writing);
        }
        crop.state = planFor(crop.outputPath, task);
        record.crops.append(crop);
    }
}

void Cropper::fill(CropRecord& record, const CropTask& task, const Look& look)
{
    Analysis analysis(task.path, rules.analysis, task.map);
    PictureFile& picture = analysis.picture();
    record.format = picture.format();
    record.stored = picture.storedSize();
    record.oriented = picture.orientedSize();
    record.orientation = picture.orientation();
    record.frames = picture.frameCount();
    if (isNothingToDo(record))
        return;
    const int needed
        = static_cast<int>(std::min<qint64>(analysis.countedPixels() / thousand + 1, budget));
    unusedBudget.acquire(needed);
    const QSemaphoreReleaser releaser(unusedBudget, needed);

    // Areas to keep are blended with the maps of single methods, which are not stored.
    const bool mayUseStore = record.file && task.constraints.keep.isEmpty();
    const VXCrop analysed = mayUseStore ? analysis.runWithStore(*record.file) : analysis.run();
    choose(record, task, analysed, picture);
    if (look)
        look(picture, analysed);
    write(record, task, picture);
    record.warnings += analysis.warnings();
}

void Cropper::choose(CropRecord& record, const CropTask& task, const VXCrop& analysis,
    const PictureFile& picture) const
{
    const VXCropConstraints constraints
        = within(analysis.pictureSize(), task.constraints, task.path);
    for (int i = 0; i < task.shapes.size(); ++i) {
        CropResult& crop = record.crops[i];
        crop.chosen = analysis.window(task.shapes.at(i).ratio, constraints);
        const QRect& window = crop.chosen.window;
        crop.stored = picture.toStored(window);
        setOutputSize(record, crop, task.shapes.at(i), picture.frameCount());
    }
}

void Cropper::setOutputSize(
    CropRecord& record, CropResult& crop, const CropShape& shape, int frameCount) const
{
    const QSize window = crop.chosen.window.size();
    const bool isFilled = !shape.size.isValid() || shape.isFilledBy(window);
    crop.outputSize
        = shape.size.isValid() && (isFilled || rules.fit != Fit::Smaller) ? shape.size : window;
    crop.contentSize = isFilled || rules.fit == Fit::Enlarged ? crop.outputSize : window;
    if (!isFilled && rules.fit == Fit::Smaller)
        record.warnings.append(QStringLiteral(
            "the crop for %1 has only %2 x %3 pixels; --upscale enlarges it, --fit pad puts "
            "background around it")
                                   .arg(shape.name)
                                   .arg(window.width())
                                   .arg(window.height()));
    const qint64 pixels
        = qint64 { crop.outputSize.width() } * crop.outputSize.height() * frameCount;
    if (pixels > rules.analysis.reading.mostPixels)
        throw retryableReadError(record.path,
            QStringLiteral("its crop for %1 would have more pixels than are allowed")
                .arg(shape.name),
            QStringLiteral("allow them with --max-pixels %1").arg(pixels));
}

bool Cropper::mayReplace(const QString& output, const CropTask& task) const
{
    return rules.ifExists == IfExists::Overwrite || task.ownOutputs.contains(output);
}

OutputState Cropper::planFor(const QString& output, const CropTask& task) const
{
    if (output.isEmpty())
        return OutputState::None;
    const bool exists = !isStandardStream(output) && QFileInfo::exists(output);
    if (exists && !rules.isResumed)
        return planForTakenName(output, task);
    return rules.isDryRun ? OutputState::Planned : OutputState::Written;
}

OutputState Cropper::planForTakenName(const QString& output, const CropTask& task) const
{
    if (!mayReplace(output, task) && rules.ifExists == IfExists::Fail)
        throwAlreadyExists(output);
    if (!mayReplace(output, task))
        return OutputState::Skipped;
    return rules.isDryRun ? OutputState::Planned : OutputState::Written;
}

void Cropper::write(CropRecord& record, const CropTask& task, PictureFile& picture) const
{
    QVector<CropResult*> crops;
    QVector<Cut> cuts;
    for (CropResult& crop : record.crops) {
        if (crop.state != OutputState::Written)
            continue;
        crops.append(&crop);
        cuts.append(
            { crop.chosen.window, crop.contentSize, crop.outputSize, rules.writing.background });
    }
    if (crops.isEmpty())
        return;
    const QVector<vips::VImage> pictures = picture.readCuts(cuts);
    std::deque<PictureWriter> files;
    WritingRules writing = rules.writing;
    for (int i = 0; i < crops.size(); ++i) {
        CropResult& crop = *crops.at(i);
        if (isStandardStream(crop.outputPath) && writing.format == nullptr)
            writing.format = formatCalled(picture.format());
        warnOfLostFrames(record, crop, writing);
        if (rules.makesFolders)
            QDir().mkpath(QFileInfo(crop.outputPath).path());
        files.emplace_back(pictures.at(i), crop.outputPath, writing, picture.deadline());
        const PictureWriter::Existing existing = files.back().existing();
        if (existing == PictureWriter::Existing::Other)
            crop.state = planForTakenName(crop.outputPath, task);
        const bool isUnchanged
            = existing == PictureWriter::Existing::Same && rules.ifExists != IfExists::Overwrite;
        if (crop.state != OutputState::Written || isUnchanged)
            files.pop_back();
    }
    commit(files, task);
}

void Cropper::commit(std::deque<PictureWriter>& files, const CropTask& task) const
{
    QStringList created;
    QStringList replaced;
    for (const PictureWriter& file : files) {
        if (isStandardStream(file.path()))
            continue;
        created.append(file.draftPath());
        (QFileInfo::exists(file.path()) ? replaced : created).append(file.path());
    }
    if (rules.journal != nullptr)
        rules.journal->willWrite(created, replaced);
    try {
        for (PictureWriter& file : files) {
            file.commit(mayReplace(file.path(), task));
            created.removeAll(file.path());
        }
    } catch (const HostError&) {
        if (rules.journal != nullptr)
            rules.journal->haveNotCreated(created);
        throw;
    }
}

} // namespace host
