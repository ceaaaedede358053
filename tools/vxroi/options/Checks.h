#pragma once

#include <CLI/CLI.hpp>

#include <QtGlobal>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace vxroi {

/// The words that an option takes, and what they mean.
template <typename Value> using Choices = std::vector<std::pair<std::string, Value>>;

/// Refuses a value that is not one of \a names, and suggests the nearest.
CLI::Validator oneOf(const std::vector<std::string>& names);

/// Refuses a value that is not a whole number from \a least to \a most.
CLI::Validator wholeNumber(qint64 least, qint64 most);

/// Refuses an empty name, as an unset variable of a shell gives: without the option, another way is taken.
CLI::Validator namesFile();

/// The word that means \a value; empty when none does.
template <typename Value> std::string wordFor(const Choices<Value>& choices, const Value& value)
{
    const auto found = std::find_if(
        choices.begin(), choices.end(), [&](const auto& choice) { return choice.second == value; });
    return found == choices.end() ? std::string() : found->first;
}

/// Adds an option whose value is one of the words in \a choices. What \a value holds before is the default, which help shows if
/// there is a word for it.
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

/// Adds an option that may be repeated, each time with one value, which \a take gets.
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
