#include "Cropper.h"

#include "CropOutputs.h"
#include "SalienceSettings.h"

#include "host/Remedies.h"

#include <QSemaphoreReleaser>

#include <algorithm>
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
        const CropOutputs outputs(rules, task);
        outputs.plan(record);
        analyseAndWrite(record, task, outputs, look);
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

void Cropper::analyseAndWrite(
    CropRecord& record, const CropTask& task, const CropOutputs& outputs, const Look& look)
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
    lookForFaces(record, task);
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
    outputs.write(record, picture);
    record.warnings += analysis.warnings();
}

void Cropper::lookForFaces(CropRecord& record, const CropTask& task) const
{
    std::optional<Detection> detection = task.detection;
    if (rules.detector)
        detection = detection
            ? rules.detector->checked(task.path, *detection)
            : rules.detector->detect(task.path, rules.analysis.reading.mostSeconds);
    if (!detection)
        return;
    if (detection->problem.isEmpty())
        record.faces = detection->faces;
    else
        record.warnings.append(detection->problem);
}

void Cropper::choose(CropRecord& record, const CropTask& task, const VXCrop& analysis,
    const PictureFile& picture) const
{
    VXCropConstraints constraints = within(analysis.pictureSize(), task.constraints, task.path);
    constraints.faces = boxesOf(record.faces.value_or(QVector<Face>()));
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
        record.warnings.append(QStringLiteral("the crop for %1 has only %2 x %3 pixels; %4")
                                   .arg(shape.name)
                                   .arg(window.width())
                                   .arg(window.height())
                                   .arg(remedies().smallCrop));
    const qint64 pixels
        = qint64 { crop.outputSize.width() } * crop.outputSize.height() * frameCount;
    if (pixels > rules.analysis.reading.mostPixels)
        throw tooManyPixels(record.path,
            QStringLiteral("its crop for %1 would have more pixels than are allowed")
                .arg(shape.name),
            pixels);
}

} // namespace host
