#include "SalienceMap.h"

#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <QStringList>

namespace host {

namespace {

const QSize workingSize(640, 480);

} // namespace

QImage salienceMapOf(const QImage& picture) { return VXSalienzMixer(workingSize).analyze(picture); }

QVector<MethodMap> methodMapsOf(const QImage& picture)
{
    // The order of VXSalienzMethod; nothing is injected, so there are no very important areas.
    const QStringList methods { QStringLiteral("sobel"), QStringLiteral("gauss"),
        QStringLiteral("histogram"), QStringLiteral("achanta") };
    const QList<QImage> maps = VXSalienzMixer(workingSize).gatherResults(picture);
    QVector<MethodMap> named;
    for (int i = 0; i < maps.size(); ++i)
        named.append({ methods.at(i), maps.at(i) });
    return named;
}

} // namespace host
