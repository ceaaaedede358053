#include "SalienceMap.h"

#include <VXRegionOfInterest/VXSalienzMixer.h>

namespace host {

QImage salienceMapOf(const QImage& picture)
{
    const QSize workingSize(640, 480);
    return VXSalienzMixer(workingSize).analyze(picture);
}

} // namespace host
