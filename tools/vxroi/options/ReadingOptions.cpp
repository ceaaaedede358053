#include "ReadingOptions.h"

#include "Checks.h"

namespace vxroi {

void addReadingOptions(CLI::App& command, host::ReadingRules& reading, const std::string& group)
{
    constexpr qint64 mostOfAnything = 1'000'000'000'000;
    const auto limit = [&](const char* name, auto& value, qint64 most, const char* text) {
        command.add_option(name, value, text)
            ->type_name("N")
            ->check(wholeNumber(1, most))
            ->capture_default_str()
            ->group(group);
    };
    limit("--max-pixels", reading.mostPixels, mostOfAnything, "refuse pictures with more pixels");
    limit("--max-bytes", reading.mostBytes, mostOfAnything, "refuse larger files");
    limit("--max-seconds", reading.mostSeconds, 1'000'000,
        "give up on a picture after so many seconds");
    addChoice<host::OnBroken>(command, "--on-broken", reading.onBroken,
        { { "error", host::OnBroken::Error }, { "warn", host::OnBroken::Warn } },
        "what to do with a damaged picture: error, or warn and use the rest")
        ->group(group);
}

} // namespace vxroi
