#pragma once

#include "ListReader.h"
#include "Tasks.h"

namespace vxroi {

/// Parses an entry of a list: a path, or an object such as {"path": "a.jpg", "keep": [[10, 20, 300, 200]], "focus":
/// [0.5, 0.3], "ratios": ["1:1"], "out": "{stem}-{ratio}.jpg"}, in which only the path is required;
/// "faces" or "error" are the answer of a face detector.
/// \param isJsonAllowed whether an entry that begins with a brace is an object.
/// \return the input; for an invalid entry, an input with a failure, with the path "(line N)" if it has none.
Input inputFrom(const ListEntry& entry, bool isJsonAllowed);

} // namespace vxroi
