#pragma once

#include "ListReader.h"
#include "Tasks.h"

namespace vxroi {

/// Reads an entry of a list: a path, or on a line of its own an object such as {"path": "a.jpg", "keep": [[10, 20,
/// 300, 200]], "focus": [0.5, 0.3], "ratios": ["1:1"], "out": "{stem}-{ratio}.jpg"}, of which all but the path may be
/// missing.
/// \param isJsonAllowed whether what begins with a brace is an object.
/// \return the input; when the entry is anything else, one with a failure, called "(line N)" where it has no path.
Input inputFrom(const ListEntry& entry, bool isJsonAllowed);

} // namespace vxroi
