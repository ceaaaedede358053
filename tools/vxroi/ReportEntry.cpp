#include "ReportEntry.h"

#include "host/CropWindow.h"
#include "host/FileName.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace vxroi {

double ReportCrop::offset(const QSize& picture) const
{
    const QSize room = picture - chosen.window.size();
    const int farthest = (std::max(room.width(), room.height()) + 1) / 2;
    const QPoint away = chosen.window.topLeft() - centred.topLeft();
    const int distance = std::max(std::abs(away.x()), std::abs(away.y()));
    return farthest == 0 ? 0 : static_cast<double>(distance) / farthest;
}

ReportEntry reportEntryOf(
    const QString& path, const QVector<host::CropShape>& shapes, const host::AnalysisRules& rules)
{
    ReportEntry entry;
    entry.path = path;
    VXCrop analysis;
    try {
        host::PictureFile picture(path, rules.reading);
        entry.size = picture.orientedSize();
        entry.working = picture.readWorkingImage();
        analysis = VXCrop::fromWorkingImage(entry.working, entry.size, rules.salience);
        entry.map = analysis.map();
        entry.methodMaps = analysis.methodMaps();
    } catch (const host::HostError& error) {
        entry.failure = host::textOfName(error.what());
    } catch (const std::bad_alloc&) {
        entry.failure
            = QStringLiteral("%1: there is not enough memory for it; show it alone").arg(path);
    }
    if (!entry.failure.isEmpty())
        return entry;
    for (const host::CropShape& shape : shapes) {
        const VXCropWindow chosen = analysis.window(shape.ratio);
        entry.crops.append(
            { shape.name, chosen, host::centredIn(entry.size, chosen.window.size()) });
    }
    return entry;
}

} // namespace vxroi
