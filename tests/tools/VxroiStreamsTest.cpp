#include "Program.h"
#include "SampleFiles.h"
#include "support/Memory.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

// Standard streams, and files with the name of one.
class VxroiStreams : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 120, 80 });

    void SetUp() override { folder.save(picture, QStringLiteral("in.png")); }

    Outcome shell(const QString& command) const
    {
        return runShell(QStringLiteral("cd '%1' && %2").arg(folder.path(QString()), command));
    }
};

} // namespace

TEST_F(VxroiStreams, cropsFromStandardInputToStandardOutput)
{
    const Outcome window = shell(QStringLiteral("cat in.png | \"$VXROI\" crop - --ratio 1:1"));
    EXPECT_EQ(window.exitCode, 0);
    EXPECT_EQ(window.out, shell(QStringLiteral("\"$VXROI\" crop in.png --ratio 1:1")).out);
    EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" crop - --ratio 1:1 < in.png")).out, window.out);

    ASSERT_EQ(shell(QStringLiteral("\"$VXROI\" crop in.png --ratio 1:1 -o file.png")).exitCode, 0);
    const Outcome piped = shell(QStringLiteral("cat in.png | \"$VXROI\" crop - --ratio 1:1 -o -"));
    EXPECT_EQ(piped.exitCode, 0);
    EXPECT_TRUE(piped.err.isEmpty());
    QFile file(folder.path(QStringLiteral("file.png")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(piped.out, file.readAll()) << "nothing but the picture, in its own format";
    const Outcome webp
        = shell(QStringLiteral("\"$VXROI\" crop in.png --ratio 1:1 -o - --format webp"));
    EXPECT_EQ(webp.out.mid(8, 4), "WEBP");
    EXPECT_TRUE(shell(QStringLiteral("\"$VXROI\" map in.png -o -")).out.startsWith("\x89PNG"));
}

TEST_F(VxroiStreams, refusesToMixAPictureWithOtherOutput)
{
    for (const char* const command :
        { "crop in.png --ratio 1:1 -o - --json", "crop in.png --ratio 1:1,2:1 -o -",
            "batch . --ratio 1:1 -o -", "crop - --ratio 1:1 < /dev/null" }) {
        const Outcome outcome = shell(QStringLiteral("\"$VXROI\" ") + QLatin1String(command));
        EXPECT_NE(outcome.exitCode, 0) << command;
        EXPECT_TRUE(outcome.out.isEmpty()) << command;
        EXPECT_EQ(outcome.err.count('\n'), 1) << command << outcome.err.toStdString();
    }
}

TEST_F(VxroiStreams, takesAFileCalledAsAStreamFromAList)
{
    folder.save(picture, QStringLiteral("./-.png"));
    shell(QStringLiteral("mv ./-.png ./-; printf -- '-\\n' > list"));
    const Outcome outcome
        = shell(QStringLiteral("\"$VXROI\" batch -q --from list --ratio 1:1 < /dev/null"));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
}

TEST_F(VxroiStreams, isNotHarmedByClosedStandardStreams)
{
    const QString crop = QStringLiteral("\"$VXROI\" crop in.png --ratio 1:1 -o out.png ");
    EXPECT_EQ(shell(crop + QStringLiteral("<&-")).exitCode, 0);
    EXPECT_EQ(QImage(folder.path(QStringLiteral("out.png"))).size(), QSize(80, 80));
    EXPECT_EQ(shell(QStringLiteral("rm out.png; ") + crop + QStringLiteral(">&-")).exitCode, 74)
        << "the window cannot be printed";
    // With stderr closed, messages do not end up in the picture.
    EXPECT_EQ(shell(QStringLiteral("rm -f out.png; ") + crop
                  + QStringLiteral("--size 9999x9999 <&- 2>&-"))
                  .exitCode,
        64);
    EXPECT_EQ(
        shell(QStringLiteral("rm -f out.png; \"$VXROI\" crop in.png --size 999x999 -o out.png "
                             "<&- >&- 2>&-"))
            .exitCode,
        74);
    EXPECT_EQ(QImage(folder.path(QStringLiteral("out.png"))).size(), QSize(80, 80));
    EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" crop - --ratio 1:1 <&-")).exitCode, 65);
}

TEST_F(VxroiStreams, endsQuietlyWhenNobodyReadsItsOutput)
{
    for (const char* const command :
        { "--help", "crop --help", "--version", "crop in.png --ratio 1:1",
            "crop in.png --ratio 1:1 --json", "crop in.png --ratio 1:1 -o -",
            "crop in.png none.png --ratio 1:1 -o -", "map in.png -o -", "cluster in.png --json" }) {
        // The reader has exited before the program starts.
        const Outcome outcome
            = shell(QStringLiteral("{ sleep 0.1; \"$VXROI\" %1; echo $? >&2; } | true")
                        .arg(QLatin1String(command)));
        EXPECT_EQ(outcome.err, "141\n") << command;
    }
}

TEST_F(VxroiStreams, cropsNoFurtherPictureWhenNobodyReads)
{
    const Outcome outcome
        = shell(QStringLiteral("cp in.png b.png; { \"$VXROI\" crop in.png b.png in.png b.png "
                               "--ratio 1:1 -o 'out/{stem}.png' --if-exists overwrite; "
                               "echo $? >&2; } | true; ls out"));
    EXPECT_EQ(outcome.err, "141\n");
    EXPECT_EQ(outcome.out, "in.png\n");
}

TEST_F(VxroiStreams, aFullDeviceIsAFailedWrite)
{
    for (const char* const command : { "--help", "crop in.png --ratio 1:1", "map in.png -o -",
             "cluster in.png --json", "crop in.png --ratio 1:1 -o -" }) {
        const Outcome outcome
            = shell(QStringLiteral("\"$VXROI\" %1 > /dev/full").arg(QLatin1String(command)));
        EXPECT_EQ(outcome.exitCode, 74) << command;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("standard output: ")))
            << outcome.err.toStdString();
    }
}

TEST_F(VxroiStreams, saysOneLineWhateverADecoderSays)
{
    if (support::isSanitized)
        GTEST_SKIP() << "where the sanitizer's reports go, there go the decoder's";
    ASSERT_EQ(shell(QStringLiteral("\"$VXROI\" crop in.png --ratio 1:1 -o whole.jxl")).exitCode, 0);
    QFile whole(folder.path(QStringLiteral("whole.jxl")));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    QByteArray damaged = whole.readAll();
    for (int i = damaged.size() / 2; i < damaged.size(); i += 7)
        damaged[i] = static_cast<char>(damaged[i] ^ 0x55);
    folder.save(damaged, QStringLiteral("damaged.jxl"));
    const Outcome outcome = shell(QStringLiteral("\"$VXROI\" crop damaged.jxl --ratio 1:1"));
    EXPECT_EQ(outcome.exitCode, 65);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("damaged.jxl")))
        << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.isEmpty());
}
