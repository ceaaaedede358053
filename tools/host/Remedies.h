#pragma once

#include <QString>

namespace host {

/// What messages advise where a setting is in the way. These texts are true of any program; one whose options change
/// the setting names them instead.
struct Remedies {
    /// %1 stands for the number of pixels to allow.
    QString tooManyPixels = QStringLiteral("reduce its size");
    QString tooManyBytes = QStringLiteral("reduce its size");
    QString tooSlow = QStringLiteral("reduce its size");
    QString existingOutput = QStringLiteral("choose another name");
    /// For a crop that has fewer pixels than its size.
    QString smallCrop = QStringLiteral("a smaller size can be filled");
    QString missingDetector = QStringLiteral("install the package of this name");
    /// For a picture that fails because its faces are not known.
    QString failedDetector = QStringLiteral("mend the detector");
};

/// Replaces the texts for this process. Call it before starting threads.
void useRemedies(const Remedies& remedies);

/// The texts of this process.
const Remedies& remedies();

} // namespace host
