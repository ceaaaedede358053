#include "MapCommand.h"

#include "host/CropWindow.h"
#include "host/HostError.h"
#include "host/Overlay.h"
#include "host/PictureReader.h"
#include "host/PictureWriter.h"
#include "host/SalienceMap.h"

#include <QFileInfo>

#include <optional>

namespace vxroi {

namespace {

// No text asks for no window.
std::optional<host::AspectRatio> ratioOf(const std::string& text)
{
    if (text.empty())
        return std::nullopt;
    return host::parseAspectRatio(QString::fromStdString(text));
}

void requirePng(const QString& path)
{
    if (QFileInfo(path).suffix().compare(QLatin1String("png"), Qt::CaseInsensitive) != 0)
        throw host::HostError(host::ExitCode::CannotCreate, path,
            QStringLiteral("a map is written as PNG"), QStringLiteral("end its name in .png"));
}

void requireDifferentFiles(const QString& mapPath, const QString& overlayPath)
{
    if (QFileInfo(mapPath).absoluteFilePath() == QFileInfo(overlayPath).absoluteFilePath())
        throw host::HostError(host::ExitCode::Usage, overlayPath,
            QStringLiteral("named for the map and for the overlay"),
            QStringLiteral("give them different names"));
}

} // namespace

void runMap(const MapArguments& arguments)
{
    const QString input = QString::fromStdString(arguments.picture);
    const QString mapPath = QString::fromStdString(arguments.output);
    const QString overlayPath = QString::fromStdString(arguments.overlay);
    const std::optional<host::AspectRatio> ratio = ratioOf(arguments.ratio);
    requirePng(mapPath);
    requireDifferentFiles(mapPath, overlayPath);
    host::refuseToOverwriteInput(input, mapPath);
    host::refuseToOverwriteInput(input, overlayPath);

    const QImage picture = host::readPicture(input);
    const QImage map = host::salienceMapOf(picture);

    host::PictureWriter mapFile(map, mapPath);
    if (!overlayPath.isEmpty()) {
        const QRect window = ratio ? host::chooseWindow(map, picture.size(), *ratio) : QRect();
        host::PictureWriter overlayFile(host::drawOverlay(picture, map, window), overlayPath);
        overlayFile.commit();
    }
    mapFile.commit();
}

} // namespace vxroi
