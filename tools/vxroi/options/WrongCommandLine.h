#pragma once

#include <QString>

namespace CLI {
class App;
class ParseError;
} // namespace CLI

namespace vxroi {

/// Explains why \a app refused the command line with \a error, and suggests the nearest name where a name is wrong:
/// "--raito: no such option; did you mean --ratio?".
QString complaintOf(const CLI::App& app, const CLI::ParseError& error);

/// \a complaint with a pointer to the --help of the command, or of the program when no command is named.
QString withHelp(const QString& complaint, const CLI::App& app);

} // namespace vxroi
