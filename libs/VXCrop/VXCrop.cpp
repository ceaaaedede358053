#include "VXCrop.h"

#include "AllowedStarts.h"
#include "BestPlaces.h"
#include "Direction.h"
#include "Faces.h"
#include "Measure.h"
#include "WorkingImage.h"

#include <VXRegionOfInterest/VXAbstractROI.h>
#include <VXRegionOfInterest/VXBackgroundROI.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>
#include <VXRegionOfInterest/VXVeryImportantAreasROI.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace vx::crop;

const QSize workingBound(640, 480);
constexpr int weightOfAreas = 20; // the mixer's own

void configure(VXSalienzMixer& mixer, const VXCropSettings& settings)
{
    for (const VXCropSettings::Method& method : VXCropSettings::methods()) {
        if (!method.ofMixer)
            continue;
        // Set on the method itself, because the mixer changes the sign of the histogram method's weight.
        const int weight = settings.*method.weight;
        mixer.roiMethod(*method.ofMixer)->setWeight(weight);
        mixer.setMethodEnabled(*method.ofMixer, weight != 0);
    }
    mixer.updateHistogramBinsChannel1(settings.tuning.bins1);
    mixer.updateHistogramBinsChannel2(settings.tuning.bins2);
    mixer.updateHistogramChiSquareThreshold(settings.tuning.threshold);
    mixer.updateHistogramHorizontalBlocks(settings.tuning.columns);
    mixer.updateHistogramVerticalBlocks(settings.tuning.rows);
    mixer.updateHistogramMinWidth(settings.tuning.minWidth);
    mixer.updateHistogramMinHeight(settings.tuning.minHeight);
}

// Whether there is anything to analyse. No image of 32 bits per pixel can have more columns.
bool isAnalysable(const QImage& image)
{
    constexpr int mostColumns = 67108862;
    return !image.isNull() && image.width() <= mostColumns;
}

// Whether workingImage() would make a mere copy. (The alpha byte may differ, which no method reads.)
bool isWorkingImage(const QImage& image)
{
    return image.format() == QImage::Format_RGB32
        && image.size() == VXCrop::workingSize(image.size());
}

QVector<QRect> partsWithin(const QSize& picture, const QVector<QRect>& areas)
{
    QVector<QRect> parts;
    for (const QRect& area : areas) {
        // Not with QRect, because an int may not hold the sides of an area.
        const QPoint first(std::max(area.left(), 0), std::max(area.top(), 0));
        const QPoint last(std::min(area.right(), picture.width() - 1),
            std::min(area.bottom(), picture.height() - 1));
        if (first.x() <= last.x() && first.y() <= last.y())
            parts.append(QRect(first, last));
    }
    return parts;
}

// An area of the picture in pixels of the working image: all those that it touches.
QRect inWorkingPixels(const QRect& area, const QSize& picture, const QSize& working)
{
    const auto first
        = [](qint64 pixel, int to, int from) { return static_cast<int>(pixel * to / from); };
    const auto last = [](qint64 pixel, int to, int from) {
        return static_cast<int>(((pixel + 1) * to - 1) / from);
    };
    return { QPoint(first(area.left(), working.width(), picture.width()),
                 first(area.top(), working.height(), picture.height())),
        QPoint(last(area.right(), working.width(), picture.width()),
            last(area.bottom(), working.height(), picture.height())) };
}

// The starts that the constraints allow, and which of them rules some out.
struct Allowed {
    QVector<Span> starts;
    std::optional<VXCropReason> reason;
};

bool areAll(const QVector<Span>& starts, const Axis& axis)
{
    return starts.size() == 1 && starts.first().first == 0
        && starts.first().last == axis.lastStart();
}

Allowed startsFor(const Direction& direction, const VXCropConstraints& constraints)
{
    QVector<Span> keep;
    for (const QRect& area : partsWithin(direction.picture, constraints.keep))
        keep.append(direction.extentOf(area));
    QVector<Area> avoid;
    for (const QRect& area : partsWithin(direction.picture, constraints.avoid))
        avoid.append(
            { direction.extentOf(area), direction.isAcross ? area.height() : area.width() });

    const QVector<Span> keeping = startsThatKeep(direction.axis, keep);
    const QVector<Span> starts = startsThatAvoid(direction.axis, keeping, avoid);
    if (!areAll(keeping, direction.axis))
        return { starts, VXCropReason::Keep };
    if (!areAll(starts, direction.axis))
        return { starts, VXCropReason::Avoid };
    return { starts, std::nullopt };
}

int startAt(const Direction& direction, const QPointF& focus)
{
    const double share = direction.isAcross ? focus.x() : focus.y();
    const double centre = std::isnan(share) ? 0.5 : std::clamp(share, 0.0, 1.0);
    const double start = centre * direction.axis.pictureLength - direction.axis.windowLength / 2.0;
    return std::clamp(static_cast<int>(std::lround(start)), 0, direction.axis.lastStart());
}

// The best places on a map with its faces, the first of them moved to show those whole.
QVector<Place> placesWithFaces(const Measure& measure, const Direction& direction,
    const QVector<QRect>& faces, const QVector<Span>& allowed, int most)
{
    QList<long long> sums = measure.alongAxis();
    addFaces(sums, direction, measure.mapSize(), faces);
    QVector<Place> places = bestPlaces(sums, direction.axis, allowed, most);
    places.first().start = startThatShows(direction, places.first().start, faces, allowed);
    return places;
}

} // namespace

VXCrop::VXCrop() = default;

VXCrop::VXCrop(const QImage& image, const VXCropSettings& settings)
    : VXCrop(fromWorkingImage(
        isWorkingImage(image) ? image : workingImage(image), image.size(), settings))
{
}

VXCrop VXCrop::fromWorkingImage(
    const QImage& image, const QSize& pictureSize, const VXCropSettings& settings)
{
    VXCrop crop;
    if (!isAnalysable(image) || pictureSize.isEmpty())
        return crop;
    // A larger one would take longer and tell nothing more.
    const bool isLarge
        = image.width() > workingBound.width() || image.height() > workingBound.height();
    const QImage working = isLarge ? workingImage(image) : image;
    crop.picture = pictureSize;
    crop.working = working.size();
    // The working image has its size already, so the mixer scales nothing.
    VXSalienzMixer mixer { QSize() };
    configure(mixer, settings);
    const QList<QImage> ofMixer = mixer.gatherResults(working);
    for (const VXCropSettings::Method& method : VXCropSettings::methods()) {
        const int weight = settings.*method.weight;
        if (weight == 0)
            continue;
        crop.maps.append({ QLatin1String(method.name),
            method.ofMixer ? ofMixer.at(crop.maps.size()) : VXBackgroundROI().evaluate(working) });
        crop.weights.append(weight);
    }
    return crop;
}

VXCrop VXCrop::fromMap(const QImage& map, const QSize& pictureSize)
{
    VXCrop crop;
    if (!isAnalysable(map) || pictureSize.isEmpty())
        return crop;
    crop.picture = pictureSize;
    crop.working = workingSize(pictureSize);
    crop.maps.append({ QStringLiteral("map"), reduced(opacityOrGrey(map), crop.working) });
    crop.weights.append(weightOfAreas);
    return crop;
}

QSize VXCrop::workingSize(const QSize& picture)
{
    if (picture.isEmpty())
        return {};
    return picture.scaled(workingBound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

QImage VXCrop::workingImage(const QImage& picture)
{
    return isAnalysable(picture) ? reduced(picture, workingSize(picture.size())) : QImage();
}

QSize VXCrop::largestWindow(const QSize& picture, const QSize& ratio)
{
    if (picture.isEmpty() || ratio.isEmpty())
        return {};
    const bool hasRoomAcross
        = qint64 { picture.width() } * ratio.height() > qint64 { picture.height() } * ratio.width();
    if (hasRoomAcross) {
        const int width = scaled(picture.height(), ratio.width(), ratio.height());
        return { std::clamp(width, 1, picture.width()), picture.height() };
    }
    const int height = scaled(picture.width(), ratio.height(), ratio.width());
    return { picture.width(), std::clamp(height, 1, picture.height()) };
}

QSize VXCrop::pictureSize() const { return picture; }

QVector<VXCropMap> VXCrop::methodMaps(const QVector<QRect>& keep) const
{
    QList<QRect> areas;
    for (const QRect& area : partsWithin(picture, keep))
        areas.append(inWorkingPixels(area, picture, working));
    QVector<VXCropMap> all = maps;
    if (!areas.isEmpty()) {
        QImage anyImage(working, QImage::Format_ARGB32);
        all.append({ QStringLiteral("areas"),
            VXVeryImportantAreasROI(areas, working).evaluate(held(anyImage)) });
    }
    return all;
}

QImage VXCrop::map(const QVector<QRect>& keep) const
{
    QList<QImage> blended;
    for (const VXCropMap& single : methodMaps(keep))
        blended.append(single.map);
    QList<int> weightsOfBlended = weights;
    if (blended.size() > weights.size())
        weightsOfBlended.append(weightOfAreas);
    if (blended.size() == 1)
        return blended.first();
    if (!blended.isEmpty())
        return VXSalienzMixer(QSize()).mix(blended, weightsOfBlended);
    if (working.isEmpty())
        return {};
    QImage black = held(QImage(working, QImage::Format_ARGB32));
    black.fill(Qt::black);
    return black;
}

VXCropWindow VXCrop::window(const QSize& ratio, const VXCropConstraints& constraints) const
{
    const QVector<VXCropWindow> only = windows(ratio, 1, constraints);
    return only.isEmpty() ? VXCropWindow() : only.first();
}

QVector<VXCropWindow> VXCrop::windows(
    const QSize& ratio, int most, const VXCropConstraints& constraints) const
{
    const QSize size = largestWindow(picture, ratio);
    if (size.isEmpty() || most < 1)
        return {};
    const QImage blended = map(constraints.keep);
    const Direction direction(picture, size);
    const Measure measure(blended, direction);
    if (size == picture)
        return { measure.at(0, VXCropReason::WholePicture) };
    if (constraints.focus)
        return { measure.at(startAt(direction, *constraints.focus), VXCropReason::Focus) };

    const Allowed allowed = startsFor(direction, constraints);
    const QVector<Place> bySalience
        = bestPlaces(measure.alongAxis(), direction.axis, allowed.starts, most);
    const QVector<QRect> faces = partsWithin(picture, constraints.faces);
    const QVector<Place> places = faces.isEmpty()
        ? bySalience
        : placesWithFaces(measure, direction, faces, allowed.starts, most);
    const bool isMovedByFaces = places.first().start != bySalience.first().start;
    QVector<VXCropWindow> found;
    for (const Place& place : places) {
        const VXCropReason ofMap = place.isCentre ? VXCropReason::Centre : VXCropReason::Salience;
        const bool isOfFaces = isMovedByFaces && found.isEmpty();
        found.append(measure.at(
            place.start, isOfFaces ? VXCropReason::Faces : allowed.reason.value_or(ofMap)));
    }
    return found;
}
