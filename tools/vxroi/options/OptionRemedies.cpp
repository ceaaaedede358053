#include "OptionRemedies.h"

#include "host/Remedies.h"

namespace vxroi {

void useOptionRemedies()
{
    host::Remedies remedies;
    remedies.tooManyPixels = QStringLiteral("allow them with --max-pixels %1");
    remedies.tooManyBytes = QStringLiteral("allow more with --max-bytes");
    remedies.tooSlow = QStringLiteral("allow more with --max-seconds");
    remedies.existingOutput = QStringLiteral("choose another name or another --if-exists");
    remedies.smallCrop
        = QStringLiteral("--upscale enlarges it, --fit pad puts background around it");
    remedies.missingDetector
        = QStringLiteral("install the package of this name, or name another --detector");
    remedies.failedDetector = QStringLiteral("mend the detector, or leave --detector-required out");
    host::useRemedies(remedies);
}

} // namespace vxroi
