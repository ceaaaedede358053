#pragma once

#include <CLI/CLI.hpp>

#include <QtGlobal>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace vxroi {

/// The words that an option accepts, and the value of each.
template <typename Value> using Choices = std::vector<std::pair<std::string, Value>>;

/// Refuses a value that is not one of \a names, and suggests the nearest.
CLI::Validator oneOf(const std::vector<std::string>& names);

/// Refuses a value that is not a whole number from \a least to \a most.
CLI::Validator wholeNumber(qint64 least, qint64 most);

/// Refuses a value that is not a number from \a least to \a most.
CLI::Validator number(double least, double most);

/// Refuses an empty name of \a what, such as "file". An unset shell variable gives one, and ignoring it would silently do
/// something else.
CLI::Validator names(const std::string& what);

/// The word for \a value; empty when there is none.
template <typename Value> std::string wordFor(const Choices<Value>& choices, const Value& value)
{
    const auto found = std::find_if(
        choices.begin(), choices.end(), [&](const auto& choice) { return choice.second == value; });
    return found == choices.end() ? std::string() : found->first;
}

/// Adds an option whose value is one of the words in \a choices. The current \a value is the default; --help shows it
/// if there is a word for it.
template <typename Value>
CLI::Option* addChoice(CLI::App& command, const std::string& name, Value& value,
    const Choices<Value>& choices, const std::string& text)
{
    std::vector<std::string> words;
    for (const auto& choice : choices)
        words.push_back(choice.first);
    const auto choose = [&value, choices](const std::string& word) {
        value = std::find_if(choices.begin(), choices.end(), [&](const auto& choice) {
            return choice.first == word;
        })->second;
    };
    return command.add_option_function<std::string>(name, choose, text)
        ->type_name("WHAT")
        ->check(oneOf(words))
        ->default_str(wordFor(choices, value));
}

/// Adds an option that may be repeated, each time with one value, which is passed to \a take.
template <typename Take>
CLI::Option* addRepeated(
    CLI::App& command, const std::string& name, const Take& take, const std::string& text)
{
    const auto takeAll = [take](const std::vector<std::string>& values) {
        std::for_each(values.begin(), values.end(), take);
    };
    return command.add_option_function<std::vector<std::string>>(name, takeAll, text)
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
}

} // namespace vxroi
