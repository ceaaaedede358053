#pragma once

#include "host/Explanation.h"

#include <QVector>

namespace CLI {
class App;
}

namespace vxroi {

/// Adds a section to the --help of \a command, below its options: a list of names that values may contain.
void addHelpSection(
    CLI::App& command, const char* heading, const QVector<host::Explanation>& explanations);

} // namespace vxroi
