#include "ReportEntry.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace vxroi {

double ReportCrop::offset(const QSize& picture) const
{
    const QSize room = picture - window.size();
    const int farthest = (std::max(room.width(), room.height()) + 1) / 2;
    const QPoint away = window.topLeft() - centred.topLeft();
    const int distance = std::max(std::abs(away.x()), std::abs(away.y()));
    return farthest == 0 ? 0 : static_cast<double>(distance) / farthest;
}

ReportEntry reportEntryOf(const QString& path, const QVector<host::CropShape>& shapes,
    const host::SalienceSettings& settings, const host::ReadingRules& rules)
{
    ReportEntry entry;
    entry.path = path;
    try {
        host::PictureFile picture(path, rules);
        entry.size = picture.orientedSize();
        entry.working = picture.readWorkingImage();
        entry.map = host::salienceMapOf(entry.working, settings);
        entry.methodMaps = host::methodMapsOf(entry.working, settings);
    } catch (const host::HostError& error) {
        entry.failure = QString::fromUtf8(error.what());
    } catch (const std::bad_alloc&) {
        entry.failure
            = QStringLiteral("%1: there is not enough memory for it; show it alone").arg(path);
    }
    if (!entry.failure.isEmpty())
        return entry;
    for (const host::CropShape& shape : shapes) {
        const host::Choice choice = host::chooseWindow(entry.map, entry.size, shape.ratio);
        const QRect centred = host::centredIn(entry.size, choice.window.size());
        entry.crops.append({ shape.name, choice.window, centred, host::nameOf(choice.decider),
            host::salienceWithin(entry.map, entry.size, choice.window),
            host::salienceWithin(entry.map, entry.size, centred) });
    }
    return entry;
}

} // namespace vxroi
