#include "Program.h"

#include <gtest/gtest.h>

namespace {

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

struct Case {
    const char* commandLine;
    const char* complaint;
};

void expectComplaint(const Case& wrong)
{
    const Outcome outcome = runVxroi(words(wrong.commandLine));
    EXPECT_EQ(outcome.exitCode, 64) << wrong.commandLine;
    EXPECT_EQ(outcome.err.toStdString(), std::string("vxroi: ") + wrong.complaint + '\n');
    EXPECT_TRUE(outcome.out.isEmpty()) << wrong.commandLine;
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

TEST(VxroiUsage, helpOfEveryCommandExplainsWhatPresetsMethodsAndSettingsThereAre)
{
    for (const char* const command : { "crop", "batch", "map", "cluster", "report" }) {
        const QByteArray help = runVxroi({ QLatin1String(command), QStringLiteral("--help") }).out;
        const QByteArray names = help.mid(help.indexOf("\nPresets:\n"));
        for (const char* const name :
            { "photo", "library", "sobel", "gauss", "histogram", "achanta", "background", "bins1",
                "bins2", "threshold", "columns", "rows", "min-width", "min-height" }) {
            const int start = names.indexOf(QByteArray("\n  ") + name + "  ");
            ASSERT_GE(start, 0) << command << ' ' << name;
            const QByteArray line
                = names.mid(start + 1, names.indexOf('\n', start + 1) - start - 1);
            EXPECT_GT(line.simplified().count(' '), 2) << line.toStdString();
        }
        EXPECT_TRUE(help.endsWith("more.\n")) << command << ": the exit codes come last";
    }
    for (const char* const command : { "crop", "batch" }) {
        const QByteArray help = runVxroi({ QLatin1String(command), QStringLiteral("--help") }).out;
        for (const char* const place : { "{dir}", "{stem}", "{ratio}", "{ext}" })
            EXPECT_TRUE(help.contains(QByteArray("\n  ") + place + "  ")) << command << place;
    }
}

TEST(VxroiUsage, versionIsOneLine)
{
    const Outcome outcome = runVxroi(words("--version"));
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(outcome.out.startsWith("vxroi "));
    EXPECT_EQ(outcome.out.count('\n'), 1);
}

TEST(VxroiUsage, namesTheCommandThatIsMeant)
{
    const char* const all = "choose crop, batch, map, merge, cluster, report or stats";
    const std::string none = std::string("no command given; ") + all + "; see vxroi --help";
    const std::string unknown
        = std::string("photo.jpg: no such command; ") + all + "; see vxroi --help";
    for (const Case& wrong :
        { Case { "bach photos", "bach: no such command; did you mean batch? See vxroi --help" },
            Case { "cropp", "cropp: no such command; did you mean crop? See vxroi --help" },
            Case {
                "mpa a.png -o b.png", "mpa: no such command; did you mean map? See vxroi --help" },
            Case { "photo.jpg --ratio 1:1", unknown.c_str() }, Case { "", none.c_str() } })
        expectComplaint(wrong);
}

TEST(VxroiUsage, namesTheOptionThatIsMeant)
{
    for (const Case& wrong : {
             Case { "crop a.png --raito 1:1",
                 "--raito: no such option; did you mean --ratio? See vxroi crop --help" },
             Case { "crop --raito=1:1 a.png",
                 "--raito: no such option; did you mean --ratio? See vxroi crop --help" },
             Case { "crop --raito",
                 "--raito: no such option; did you mean --ratio? See vxroi crop --help" },
             Case { "crop a.png -ratio 1:1",
                 "-ratio: no such option; did you mean --ratio? See vxroi crop --help" },
             Case { "crop a.png --prog",
                 "--prog: no such option; did you mean --progressive? See vxroi crop --help" },
             Case { "map a.png --ouptut b.png",
                 "--ouptut: no such option; did you mean --output? See vxroi map --help" },
             Case {
                 "crop a.png --ratio 1:1 --wide", "--wide: no such option; see vxroi crop --help" },
             Case { "--vresion",
                 "--vresion: no such option; did you mean --version? See vxroi --help" },
         })
        expectComplaint(wrong);
}

TEST(VxroiUsage, saysWhereAnOptionBelongs)
{
    for (const Case& wrong : {
             Case { "crop a.png --grid 6x4",
                 "--grid: an option of vxroi cluster, not of vxroi crop; see vxroi crop --help" },
             Case { "map a.png -r",
                 "-r: an option of vxroi batch, merge or report, not of vxroi map; see vxroi map "
                 "--help" },
             Case { "map a.png --from list",
                 "--from: an option of vxroi batch, merge or report, not of vxroi map; see vxroi "
                 "map --help" },
             Case { "--grid 6x4 cluster a.png",
                 "--grid: stands before the command; write it after cluster; see vxroi cluster "
                 "--help" },
             Case { "--overlay=b.png a.png",
                 "--overlay: stands before the command; write it after map; see vxroi --help" },
         })
        expectComplaint(wrong);
}

TEST(VxroiUsage, namesTheChoiceThatIsMeant)
{
    for (const Case& wrong :
        {
            Case { "crop a.png --ratio 1:1 --fit padd",
                "--fit: padd is not a choice; did you mean pad? See vxroi crop --help" },
            Case { "crop a.png --ratio 1:1 --emit geometri",
                "--emit: geometri is not a choice; did you mean geometry? See vxroi crop --help" },
            Case { "map a.png -o b.png --if-exists replace",
                "--if-exists: replace is not a choice; choose fail or overwrite; see vxroi map "
                "--help" },
            Case { "crop a.png --ratio 1:1 --preset phot",
                "--preset phot: no such preset; did you mean photo? See vxroi crop --help" },
            Case { "map a.png -o b.png --preset portrait",
                "--preset portrait: no such preset; choose photo or library; see vxroi map "
                "--help" },
            Case { "cluster a.png --json --weight guass=20",
                "--weight guass=20: no such method; did you mean gauss? See vxroi cluster --help" },
            Case { "crop a.png --ratio 1:1 --weight gauss=x",
                "--weight gauss=x: not a weight from -1000 to 1000; write one, such as gauss=20; "
                "see vxroi crop --help" },
            Case { "crop a.png --ratio 1:1 --tune bin1=16",
                "--tune bin1=16: the histogram method has no such setting; did you mean bins1? "
                "See vxroi crop --help" },
        })
        expectComplaint(wrong);
}

TEST(VxroiUsage, saysWhatIsMissingOrTooMuch)
{
    for (const Case& wrong : {
             Case { "crop", "vxroi crop: PICTURE is missing; see vxroi crop --help" },
             Case { "crop --ratio 1:1", "vxroi crop: PICTURE is missing; see vxroi crop --help" },
             Case { "report photos", "vxroi report: --output is missing; see vxroi report --help" },
             Case { "crop a.png --ratio", "--ratio: its value is missing; see vxroi crop --help" },
             Case { "crop a.png --ratio 1:1 --ratio",
                 "--ratio: its value is missing; see vxroi crop --help" },
             Case { "crop a.png --ratio 1:1 --focus 0,0 --focus 1,1",
                 "--focus: given more than once; give it once; see vxroi crop --help" },
             Case { "map a.png b.png -o c.png",
                 "b.png: one argument too many for vxroi map; see vxroi map --help" },
             Case { "map a.png -", "-: one argument too many for vxroi map; see vxroi map --help" },
             Case { "cluster a.png map",
                 "map: one argument too many for vxroi cluster; see vxroi cluster --help" },
             Case { "map a.png -o b.png --ratio 1:1",
                 "--ratio: needs --overlay; see vxroi map --help" },
             Case { "crop a.png --ratio 1:1 --json --emit css",
                 "--json: cannot be combined with --emit; leave one of them out; see vxroi crop "
                 "--help" },
             Case { "crop a.png --ratio 1:1 --upscale --json=perhaps",
                 "--json: takes no value; see vxroi crop --help" },
             Case { "crop a.png --ratio 1:1 --quality 101",
                 "--quality: 101 is not a whole number from 1 to 100; see vxroi crop --help" },
             Case { "crop a.png --ratio 1:1 --max-seconds 1.5",
                 "--max-seconds: 1.5 is not a whole number from 1 to 1000000; see vxroi crop "
                 "--help" },
         })
        expectComplaint(wrong);
}

TEST(VxroiUsage, aWrongCommandLineIsOneLineThatNamesTheHelpOnce)
{
    for (const char* const line :
        { "crop a.png", "batch", "map a.png", "crop a.png --ratio wide", "crop a.png --size 3",
            "crop a.png --ratio 1:1 --background pnik", "crop a.png --ratio 1:1 -o -  --json",
            "crop a.png --ratio 1:1 -o {name}.png", "crop -- --raito", "cluster a.png --grid 3" }) {
        const Outcome outcome = runVxroi(words(line));
        EXPECT_EQ(outcome.exitCode, 64) << line;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("--help")))
            << line << ": " << outcome.err.toStdString();
        EXPECT_EQ(outcome.err.count("--help"), 1) << line << ": " << outcome.err.toStdString();
        EXPECT_TRUE(outcome.out.isEmpty()) << line;
    }
}
