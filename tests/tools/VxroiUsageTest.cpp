#include "Program.h"

#include <gtest/gtest.h>

namespace {

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

TEST(VxroiUsage, helpNamesTheCommandsAndTheExitCodes)
{
    const Outcome outcome = runVxroi(words("--help"));
    EXPECT_EQ(outcome.exitCode, 0);
    for (const char* const part : { "crop", "map", "64", "65", "66", "70", "73", "74" })
        EXPECT_TRUE(outcome.out.contains(part)) << part;
}

TEST(VxroiUsage, helpOfACommandNamesItsOptions)
{
    EXPECT_TRUE(runVxroi(words("crop --help")).out.contains("--ratio W:H"));
    EXPECT_TRUE(runVxroi(words("map --help")).out.contains("--overlay FILE"));
}

TEST(VxroiUsage, versionIsOneLine)
{
    const Outcome outcome = runVxroi(words("--version"));
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(outcome.out.startsWith("vxroi "));
    EXPECT_EQ(outcome.out.count('\n'), 1);
}

TEST(VxroiUsage, aWrongCommandLineIsOneLineAndExitCode64)
{
    for (const char* const line :
        { "", "frame a.png", "crop", "crop a.png", "crop --ratio 1:1", "crop a.png --ratio",
            "crop a.png --ratio 1:1 --wide", "map", "map a.png -o b.png --ratio 1:1" }) {
        const Outcome outcome = runVxroi(words(line));
        EXPECT_EQ(outcome.exitCode, 64) << line;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("--help")))
            << line << ": " << outcome.err.toStdString();
        EXPECT_TRUE(outcome.out.isEmpty()) << line;
    }
}
