#include "WrongCommandLine.h"

#include "CommonOptions.h"
#include "Suggestion.h"

#include <CLI/CLI.hpp>

namespace vxroi {

namespace {

// The command that the user named, or the program itself if it has no commands; null when there was none.
const CLI::App* commandOf(const CLI::App& app)
{
    const std::vector<CLI::App*> named = app.get_subcommands();
    const bool hasCommands = app.get_require_subcommand_min() > 0;
    if (named.empty())
        return hasCommands ? nullptr : &app;
    return named.front();
}

// What a user writes to run the command.
QString programOf(const CLI::App& command)
{
    const CLI::App* const program = command.get_parent();
    const QString name = QString::fromStdString(command.get_name());
    return program == nullptr
        ? name
        : QStringLiteral("%1 %2").arg(QString::fromStdString(program->get_name()), name);
}

// The names of all commands, or only of those that have \a option.
QStringList commandNames(const CLI::App& app, const QString& option = {})
{
    QStringList names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        const bool isListed
            = option.isEmpty() || command->get_option_no_throw(option.toStdString()) != nullptr;
        if (isListed)
            names.append(QString::fromStdString(command->get_name()));
    }
    return names;
}

QStringList optionNames(const CLI::App& command)
{
    QStringList names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames())
            names.append(QString::fromStdString(name));
    }
    return names;
}

// The first word that is neither an option nor an argument of \a command.
QString firstUnusedWord(const CLI::App& command)
{
    for (const std::string& word : command.remaining()) {
        if (word != "--")
            return pathFrom(word);
    }
    return QString();
}

// A dash alone is not an option but a standard stream.
bool isOption(const QString& word) { return word.size() > 1 && word.startsWith(QLatin1Char('-')); }

// The option in a word such as "--size=9x9", without its value.
QString optionIn(const QString& word) { return word.section(QLatin1Char('='), 0, 0); }

QString unknownOption(const CLI::App& command, const QString& option)
{
    const QString complaint = option + QStringLiteral(": no such option");
    QString written = option;
    const QString nearest = nearestName(written.remove(QLatin1Char('-')), optionNames(command));
    return nearest.isEmpty() ? complaint
                             : complaint + QStringLiteral("; did you mean --%1?").arg(nearest);
}

QString complaintBeforeCommand(const CLI::App& app, const QString& word)
{
    if (!isOption(word))
        return QStringLiteral("%1: no such command; %2")
            .arg(word, suggestion(word, commandNames(app)));
    const QString option = optionIn(word);
    const QStringList owners = commandNames(app, option);
    return owners.isEmpty() ? unknownOption(app, option)
                            : QStringLiteral("%1: stands before the command; write it after %2")
                                  .arg(option, alternatives(owners));
}

QString complaintWithin(const CLI::App& command, const QString& word)
{
    if (!isOption(word))
        return QStringLiteral("%1: one argument too many for %2").arg(word, programOf(command));
    const QString option = optionIn(word);
    const QStringList owners = command.get_parent() == nullptr
        ? QStringList()
        : commandNames(*command.get_parent(), option);
    return owners.isEmpty() ? unknownOption(command, option)
                            : QStringLiteral("%1: an option of vxroi %2, not of %3")
                                  .arg(option, alternatives(owners), programOf(command));
}

// A complaint about an option that is missing, lacks another, or excludes another; empty when there is none.
QString complaintOfMissing(const CLI::App& command)
{
    for (const CLI::Option* option : command.get_options()) {
        const QString name = QString::fromStdString(option->get_name());
        if (option->get_required() && option->count() == 0)
            return QStringLiteral("%1: %2 is missing").arg(programOf(command), name);
        if (option->count() == 0)
            continue;
        for (const CLI::Option* needed : option->get_needs()) {
            if (needed->count() == 0)
                return QStringLiteral("%1: needs %2")
                    .arg(name, QString::fromStdString(needed->get_name()));
        }
        for (const CLI::Option* excluded : option->get_excludes()) {
            if (excluded->count() > 0)
                return QStringLiteral("%1: cannot be combined with %2; leave one of them out")
                    .arg(name, QString::fromStdString(excluded->get_name()));
        }
    }
    return QString();
}

// A complaint about an option that has no value, or more than one.
QString complaintOfValues(const CLI::App& command, const CLI::ArgumentMismatch& error)
{
    const std::string text = error.what();
    const std::string name = text.substr(0, text.find(':'));
    const CLI::Option* const option = command.get_option_no_throw(name);
    const bool isRepeated = option != nullptr && option->count() > 1
        && option->get_multi_option_policy() == CLI::MultiOptionPolicy::Throw;
    return QString::fromStdString(name)
        + (isRepeated ? QStringLiteral(": given more than once; give it once")
                      : QStringLiteral(": its value is missing"));
}

// A complaint about a switch that is given a value. Values of other options have already been checked.
QString complaintOfSwitches(const CLI::App& command)
{
    for (const CLI::Option* option : command.get_options()) {
        const bool isSwitch = option->get_items_expected_max() == 0;
        if (isSwitch && option->count() > 0 && option->results().front() != "true")
            return QString::fromStdString(option->get_name()) + QStringLiteral(": takes no value");
    }
    return QString();
}

} // namespace

QString complaintOf(const CLI::App& app, const CLI::ParseError& error)
{
    const CLI::App* const command = commandOf(app);
    const QString strayWord = firstUnusedWord(app);
    if (!strayWord.isEmpty() && command != &app)
        return complaintBeforeCommand(app, strayWord);
    if (command == nullptr)
        return QStringLiteral("no command given; ") + suggestion(QString(), commandNames(app));
    const QString word = firstUnusedWord(*command);
    if (!word.isEmpty())
        return complaintWithin(*command, word);
    if (const auto* const mismatch = dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return complaintOfValues(*command, *mismatch);
    if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr)
        return complaintOfSwitches(*command);
    const QString missing = complaintOfMissing(*command);
    return missing.isEmpty() ? pathFrom(error.what()) : missing;
}

QString withHelp(const QString& complaint, const CLI::App& app)
{
    // Some remedies already name --help.
    if (complaint.contains(QLatin1String("--help")))
        return complaint;
    const CLI::App* const command = commandOf(app);
    const QString help = programOf(command == nullptr ? app : *command) + QStringLiteral(" --help");
    return complaint
        + (complaint.endsWith(QLatin1Char('?')) ? QStringLiteral(" See ")
                                                : QStringLiteral("; see "))
        + help;
}

} // namespace vxroi
