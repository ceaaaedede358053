#pragma once

#include "Tasks.h"

namespace vxroi {

/// The input at a path.
/// \param lineNumber where it stands in its list, from 1.
/// \return the input; one with a failure when \a line holds a NUL.
Input inputFromPath(const QByteArray& line, qint64 lineNumber);

/// Reads an input such as {"path": "a.jpg", "keep": [[10, 20, 300, 200]], "focus": [0.5, 0.3],
/// "ratios": ["1:1"], "out": "{stem}-{ratio}.jpg"}, of which all but the path may be missing.
/// \param lineNumber where the line stands in its list, from 1.
/// \return the input; when \a line is anything else, one with a failure, called by its line where it
/// has no path.
Input inputFromJson(const QByteArray& line, qint64 lineNumber);

} // namespace vxroi
