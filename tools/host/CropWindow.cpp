#include "CropWindow.h"

#include "StripSearch.h"

#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace host {

namespace {

struct AxisChoice {
    int start;
    Decider decider;
};

// What is wished along one axis.
struct AxisWishes {
    QVector<Span> keep;
    std::optional<double> focus;
};

AxisChoice chooseStart(const VXSalienzMaximizerAbstract& maximizer, const QImage& map,
    const StripAxis& axis, const AxisWishes& wishes)
{
    if (wishes.focus) {
        const double start = *wishes.focus * axis.pictureLength - axis.stripLength / 2.0;
        return { std::clamp(static_cast<int>(std::lround(start)), 0, axis.lastStart()),
            Decider::Focus };
    }
    const QVector<Span> allowed = startsThatKeep(axis, wishes.keep);
    const StripPlace place = bestPlace(maximizer.sums(map), axis, allowed);
    const bool isFree = allowed.first().first == 0 && allowed.first().last == axis.lastStart();
    if (!isFree)
        return { place.start, Decider::Keep };
    return { place.start, place.isCentre ? Decider::Centre : Decider::Salience };
}

// The areas' extents along one axis.
template <typename First, typename Last>
QVector<Span> spansOf(const QVector<QRect>& areas, const First& first, const Last& last)
{
    QVector<Span> spans;
    for (const QRect& area : areas)
        spans.append({ first(area), last(area) });
    return spans;
}

Choice chooseColumns(
    const QImage& map, const QSize& picture, const QSize& window, const Wishes& wishes)
{
    AxisWishes across { spansOf(wishes.keep, std::mem_fn(&QRect::left), std::mem_fn(&QRect::right)),
        std::nullopt };
    if (wishes.focus)
        across.focus = wishes.focus->x();
    const AxisChoice choice = chooseStart(
        VXSalienzMaximizerHorizontal(), map, { picture.width(), window.width() }, across);
    return { QRect(QPoint(choice.start, 0), window), choice.decider };
}

Choice chooseRows(
    const QImage& map, const QSize& picture, const QSize& window, const Wishes& wishes)
{
    AxisWishes down { spansOf(wishes.keep, std::mem_fn(&QRect::top), std::mem_fn(&QRect::bottom)),
        std::nullopt };
    if (wishes.focus)
        down.focus = wishes.focus->y();
    const AxisChoice choice = chooseStart(
        VXSalienzMaximizerVertical(), map, { picture.height(), window.height() }, down);
    return { QRect(QPoint(0, choice.start), window), choice.decider };
}

long long sumOf(const QList<long long>& sums, const Span& span)
{
    return std::accumulate(sums.begin() + span.first, sums.begin() + span.last + 1, 0LL);
}

} // namespace

QString nameOf(Decider decider)
{
    switch (decider) {
    case Decider::WholePicture:
        return QStringLiteral("whole");
    case Decider::Focus:
        return QStringLiteral("focus");
    case Decider::Keep:
        return QStringLiteral("keep");
    case Decider::Salience:
        return QStringLiteral("salience");
    case Decider::Centre:
        break;
    }
    return QStringLiteral("centre");
}

QString geometryOf(const QRect& window)
{
    return QStringLiteral("%1x%2+%3+%4")
        .arg(window.width())
        .arg(window.height())
        .arg(window.x())
        .arg(window.y());
}

QSize largestWindow(const QSize& picture, const AspectRatio& ratio)
{
    const bool hasRoomSideways = picture.width() * ratio.height > picture.height() * ratio.width;
    if (hasRoomSideways) {
        const int width = scaled(picture.height(), ratio.width, ratio.height);
        return QSize(std::clamp(width, 1, picture.width()), picture.height());
    }
    const int height = scaled(picture.width(), ratio.height, ratio.width);
    return QSize(picture.width(), std::clamp(height, 1, picture.height()));
}

Choice chooseWindow(
    const QImage& map, const QSize& picture, const AspectRatio& ratio, const Wishes& wishes)
{
    const QSize window = largestWindow(picture, ratio);
    if (window.width() < picture.width())
        return chooseColumns(map, picture, window, wishes);
    if (window.height() < picture.height())
        return chooseRows(map, picture, window, wishes);
    return { QRect(QPoint(), picture), Decider::WholePicture };
}

double salienceWithin(const QImage& map, const QSize& picture, const QRect& window)
{
    const bool isColumns = window.width() < picture.width();
    const QList<long long> sums = isColumns ? VXSalienzMaximizerHorizontal().sums(map)
                                            : VXSalienzMaximizerVertical().sums(map);
    const int start = isColumns ? window.left() : window.top();
    const int length = isColumns ? window.width() : window.height();
    const int pictureLength = isColumns ? picture.width() : picture.height();
    const int first = std::min(scaled(start, sums.size(), pictureLength), sums.size() - 1);
    const int end
        = std::clamp(scaled(start + length, sums.size(), pictureLength), first + 1, sums.size());
    const long long all = sumOf(sums, { 0, sums.size() - 1 });
    return all == 0
        ? 0.0
        : static_cast<double>(sumOf(sums, { first, end - 1 })) / static_cast<double>(all);
}

QRect centredIn(const QSize& picture, const QSize& window)
{
    return QRect(
        QPoint((picture.width() - window.width()) / 2, (picture.height() - window.height()) / 2),
        window);
}

QImage viewOf(QImage& picture, const QRect& window)
{
    const bool hasWholeBytes = picture.depth() % 8 == 0;
    if (!hasWholeBytes)
        return picture.copy(window);
    const std::ptrdiff_t bytesPerPixel = picture.depth() / 8;
    // Over constant bytes, setting the colour space would make a copy.
    uchar* const firstPixel = picture.scanLine(window.top()) + window.left() * bytesPerPixel;
    QImage view(
        firstPixel, window.width(), window.height(), picture.bytesPerLine(), picture.format());
    view.setColorTable(picture.colorTable());
    view.setColorSpace(picture.colorSpace());
    view.setDotsPerMeterX(picture.dotsPerMeterX());
    view.setDotsPerMeterY(picture.dotsPerMeterY());
    return view;
}

} // namespace host
