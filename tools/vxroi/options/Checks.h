#pragma once

#include <QtGlobal>

#include <string>
#include <vector>

namespace CLI {
class Validator;
}

namespace vxroi {

/// Refuses a value that is none of \a names, and says which of them is near.
CLI::Validator oneOf(const std::vector<std::string>& names);

/// Refuses a value that is no whole number from \a least to \a most.
CLI::Validator wholeNumber(qint64 least, qint64 most);

} // namespace vxroi
