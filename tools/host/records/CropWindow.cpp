#include "CropWindow.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

struct NamedReason {
    VXCropReason reason;
    const char* name;
};

constexpr std::array<NamedReason, 7> reasons { {
    { VXCropReason::WholePicture, "whole" },
    { VXCropReason::Focus, "focus" },
    { VXCropReason::Keep, "keep" },
    { VXCropReason::Avoid, "avoid" },
    { VXCropReason::Faces, "faces" },
    { VXCropReason::Salience, "salience" },
    { VXCropReason::Centre, "centre" },
} };

} // namespace

QString nameOf(VXCropReason reason)
{
    const auto* const named = std::find_if(reasons.begin(), reasons.end(),
        [reason](const NamedReason& candidate) { return candidate.reason == reason; });
    return QLatin1String(named->name);
}

std::optional<VXCropReason> reasonCalled(const QString& name)
{
    const auto* const named = std::find_if(reasons.begin(), reasons.end(),
        [&name](const NamedReason& candidate) { return QLatin1String(candidate.name) == name; });
    return named == reasons.end() ? std::nullopt : std::make_optional(named->reason);
}

QString geometryOf(const QRect& window)
{
    return QStringLiteral("%1x%2+%3+%4")
        .arg(window.width())
        .arg(window.height())
        .arg(window.x())
        .arg(window.y());
}

QRect centredIn(const QSize& picture, const QSize& window)
{
    return QRect(
        QPoint((picture.width() - window.width()) / 2, (picture.height() - window.height()) / 2),
        window);
}

} // namespace host
