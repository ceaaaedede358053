#include "MapCommand.h"

#include "OutputFiles.h"

#include "host/CropWindow.h"
#include "host/HostError.h"
#include "host/Overlay.h"
#include "host/PictureReader.h"
#include "host/SalienceMap.h"

#include <QDir>

#include <optional>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// No text asks for no window.
std::optional<host::AspectRatio> ratioOf(const std::string& text)
{
    if (text.empty())
        return std::nullopt;
    return host::parseAspectRatio(QString::fromStdString(text));
}

void createFolder(const QString& path)
{
    if (!QDir().mkpath(path))
        throw HostError(ExitCode::CannotCreate, path, QStringLiteral("cannot be made a folder"),
            QStringLiteral("name a folder, or a place where one can be made"));
}

} // namespace

void runMap(const MapArguments& arguments)
{
    const QString input = QString::fromStdString(arguments.picture);
    const QString mapPath = QString::fromStdString(arguments.output);
    const QString folder = QString::fromStdString(arguments.perMethod);
    const QString overlayPath = QString::fromStdString(arguments.overlay);
    const std::optional<host::AspectRatio> ratio = ratioOf(arguments.ratio);
    if (mapPath.isEmpty() && folder.isEmpty() && overlayPath.isEmpty())
        throw HostError(ExitCode::Usage, QStringLiteral("map"),
            QStringLiteral("no output is named"),
            QStringLiteral("add --output, --overlay or --per-method; see vxroi map --help"));
    if (!mapPath.isEmpty())
        requirePng(mapPath);

    const host::SalienceSettings settings = arguments.analysis.salience();
    host::Wishes wishes;
    for (const std::string& area : arguments.keep)
        wishes.keep.append(parseArea(QString::fromStdString(area)));

    host::PictureFile picture(input, arguments.analysis.reading());
    const QImage working = picture.readWorkingImage();
    wishes.keep = host::areasWithin(picture.orientedSize(), wishes.keep);
    const QList<QRect> areas
        = host::workingAreas(wishes.keep, picture.orientedSize(), working.size());
    const QImage map = host::salienceMapOf(working, settings, areas);

    const auto shown = [&](const QImage& levels) {
        return arguments.stretch ? host::stretched(levels) : levels;
    };
    OutputFiles files(input, arguments.ifExists);
    if (!mapPath.isEmpty())
        files.add(shown(map), mapPath);
    if (!overlayPath.isEmpty()) {
        const QImage pixels = picture.readPixels();
        const QRect window
            = ratio ? host::chooseWindow(map, pixels.size(), *ratio, wishes).window : QRect();
        files.add(host::drawOverlay(pixels, map, window, wishes.keep), overlayPath);
    }
    if (!folder.isEmpty()) {
        createFolder(folder);
        for (const host::MethodMap& single : host::methodMapsOf(working, settings, areas))
            files.add(shown(single.map), QStringLiteral("%1/%2.png").arg(folder, single.method));
    }
    files.commit();
}

} // namespace vxroi
