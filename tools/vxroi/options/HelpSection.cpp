#include "HelpSection.h"

#include <CLI/CLI.hpp>

namespace vxroi {

void addHelpSection(
    CLI::App& command, const char* heading, const QVector<host::Explanation>& explanations)
{
    const auto nameWidth = static_cast<int>(command.get_formatter()->get_column_width());
    QString section = QLatin1String(heading) + QStringLiteral(":\n");
    for (const host::Explanation& one : explanations)
        section += (QStringLiteral("  ") + one.name).leftJustified(nameWidth) + one.text
            + QLatin1Char('\n');
    // The program's footer, with the exit codes, stays last.
    const std::string common = command.get_parent()->get_footer();
    const std::string own = command.get_footer();
    const std::string others = own.substr(0, own.size() - common.size());
    command.footer(others + section.toStdString() + '\n' + common);
}

} // namespace vxroi
