#pragma once

#include <QString>

namespace CLI {
class App;
class ParseError;
} // namespace CLI

namespace vxroi {

/// What is wrong with a command line that \a app refused with \a error, with the nearest right name where a
/// name is wrong: "--raito: no such option; did you mean --ratio?".
QString complaintOf(const CLI::App& app, const CLI::ParseError& error);

/// \a complaint about a command line with the --help that tells more: that of the command that it names.
QString withHelp(const QString& complaint, const CLI::App& app);

} // namespace vxroi
