#include "Program.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

namespace {

// What --quiet suppresses on stderr, and what it does not.
class VxroiQuiet : public testing::Test {
protected:
    const samples::SampleFolder folder;

    void SetUp() override
    {
        const QImage picture = samples::picture({ 120, 80 });
        folder.save(picture, QStringLiteral("whole.png"));
        folder.save(samples::truncated(samples::encoded(picture, "jpg"), 50),
            QStringLiteral("damaged.jpg"));
    }

    Outcome vxroi(const char* arguments) const
    {
        return runShell(QStringLiteral("cd '%1' && \"$VXROI\" %2")
                            .arg(folder.path(QString()), QLatin1String(arguments)));
    }
};

} // namespace

TEST_F(VxroiQuiet, dropsWarnings)
{
    for (const char* const command : { "crop whole.png --size 999x999 -o large.png",
             "crop damaged.jpg --ratio 1:1 --on-broken warn",
             "map damaged.jpg -o map.png --on-broken warn",
             "cluster damaged.jpg --json --on-broken warn" }) {
        const QByteArray loud = QByteArray(command) + " --if-exists overwrite";
        const Outcome warned = vxroi(loud.constData());
        EXPECT_EQ(warned.exitCode, 0) << command;
        EXPECT_EQ(warned.err.count('\n'), 1) << command << warned.err.toStdString();
        for (const char* const option : { " -q", " --quiet" }) {
            const Outcome quiet = vxroi((loud + option).constData());
            EXPECT_EQ(quiet.exitCode, 0) << command;
            EXPECT_TRUE(quiet.err.isEmpty()) << command << quiet.err.toStdString();
            EXPECT_EQ(quiet.out, warned.out) << command;
        }
    }
}

TEST_F(VxroiQuiet, leavesTheFailureOfOneAmongSeveralToTheExitCode)
{
    const char* const command = "crop whole.png damaged.jpg none.png --ratio 1:1";
    const Outcome loud = vxroi(command);
    EXPECT_EQ(loud.exitCode, 1);
    EXPECT_EQ(loud.err.count('\n'), 2);
    const Outcome quiet = vxroi((QByteArray(command) + " -q").constData());
    EXPECT_EQ(quiet.exitCode, 1);
    EXPECT_TRUE(quiet.err.isEmpty()) << quiet.err.toStdString();
    EXPECT_EQ(quiet.out, loud.out);
}

TEST_F(VxroiQuiet, saysWhyACommandAsAWholeFailed)
{
    struct Case {
        const char* command;
        int exitCode;
        const char* subject;
    };
    for (const Case& one : { Case { "crop -q none.png --ratio 1:1", 66, "none.png" },
             Case { "map -q damaged.jpg -o map.png", 65, "damaged.jpg" },
             Case { "cluster -q whole.png", 64, "cluster" },
             Case { "crop -q whole.png --ratio wide", 64, "--ratio wide" } }) {
        const Outcome outcome = vxroi(one.command);
        EXPECT_EQ(outcome.exitCode, one.exitCode) << one.command;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QLatin1String(one.subject)))
            << one.command << outcome.err.toStdString();
    }
}
