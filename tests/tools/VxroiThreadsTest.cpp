#include "Program.h"
#include "SampleFiles.h"
#include "support/Memory.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace {

// Uses a picture large enough for Qt to scale and convert it in threads.
class VxroiThreads : public testing::Test {
protected:
    void SetUp() override
    {
        if (support::isSanitized)
            GTEST_SKIP() << "the sanitizer wants to be loaded first";
        folder.save(samples::picture(QSize(1200, 900)), QStringLiteral("a.png"));
    }

    // Runs a command under a limit, which is an environment variable or a shell command.
    Outcome run(const char* limit, const char* command) const
    {
        Outcome outcome = runShell(
            QStringLiteral("cd '%1' && %2 LD_PRELOAD='" VXROI_REFUSE_THREADS
                           "' timeout -s KILL 60 \"$VXROI\" %3")
                .arg(folder.path(QString()), QString::fromUtf8(limit), QString::fromUtf8(command)));
        EXPECT_NE(outcome.exitCode, 137) << "waits for ever: " << command;
        return outcome;
    }

    samples::SampleFolder folder;
};

const std::array<const char*, 5> commands { "crop a.png --ratio 1:1 -o c.png",
    "map a.png -o m.png --overlay o.jpg", "cluster a.png --grid 7x5 --json",
    "batch . --ratio 3:2 -o {dir}/{stem}.b.jpg -j2", "report . --ratio 1:1 -o r.html" };

} // namespace

TEST_F(VxroiThreads, everyCommandSaysSoWhenThereAreTooFew)
{
    for (const char* const limit : { "THREADS_AT_ONCE=0", "THREADS_AT_ONCE=5" }) {
        for (const char* const command : commands) {
            const Outcome outcome = run(limit, command);
            EXPECT_EQ(outcome.exitCode, 70) << command;
            EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("threads: the system refuses")))
                << outcome.err.toStdString();
        }
    }
}

TEST_F(VxroiThreads, sixAreEnough)
{
    for (const char* const command : commands) {
        const Outcome outcome = run("THREADS_AT_ONCE=6", command);
        EXPECT_EQ(outcome.exitCode, 0) << command << outcome.err.toStdString();
    }
}

// Another process may use up the limit after the program has checked it.
TEST_F(VxroiThreads, aCommandEndsWhenThreadsAreRefusedThatWereToBeHad)
{
    const Outcome outcome = run("THREADS_IN_ALL=13", commands.at(3));
    EXPECT_EQ(outcome.exitCode, 70);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("threads: the system refuses")))
        << outcome.err.toStdString();
}

// From a size in which the program hardly starts to one in which it works. (Lack of memory may be reported as damage.)
TEST_F(VxroiThreads, everyCommandEndsInASmallAddressSpace)
{
    for (const int kibibytes : { 180000, 250000, 350000, 500000, 600000, 700000, 900000 }) {
        for (const char* const command : commands) {
            const QByteArray limit = "rm -f c.png m.png o.jpg r.html *.b.jpg; ulimit -v "
                + QByteArray::number(kibibytes) + ';';
            const Outcome outcome = run(limit.constData(), command);
            const std::set<int> documented { 0, 1, 65, 70 };
            EXPECT_EQ(documented.count(outcome.exitCode), 1U)
                << kibibytes << ", " << command << ": " << outcome.err.toStdString();
        }
    }
}
