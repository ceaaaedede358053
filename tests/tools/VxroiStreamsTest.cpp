#include "Program.h"
#include "SampleFiles.h"
#include "support/Memory.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>
#include <vips/vips8>

#include <vector>

namespace {

// Standard streams, names and frames.
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
    // What would go to stderr does not go into the picture.
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
        // The reader is gone before the program starts.
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

TEST_F(VxroiStreams, cropsEveryFrameByOneWindow)
{
    // Twelve frames in which a spot moves from the left to the middle.
    ASSERT_EQ(VIPS_INIT("test"), 0);
    using vips::VImage;
    std::vector<VImage> frames;
    std::vector<int> delays;
    for (int i = 0; i < 12; ++i) {
        VImage frame = VImage::black(240, 82, VImage::option()->set("bands", 3)) + 90;
        frame = frame.cast(VIPS_FORMAT_UCHAR).copy_memory();
        frame.draw_circle({ 255, 40, 20 }, 20 + 8 * i, 40, 12, VImage::option()->set("fill", true));
        frames.push_back(
            frame.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB)));
        delays.push_back(40 + 10 * i);
    }
    VImage strip = VImage::arrayjoin(frames, VImage::option()->set("across", 1)).copy();
    strip.set("page-height", 82);
    strip.set("delay", delays);
    strip.set("loop", 3);
    for (const char* const suffix : { "gif", "webp" }) {
        const QString name = QStringLiteral("moving.") + QLatin1String(suffix);
        strip.write_to_file(folder.path(name).toUtf8().constData());
        const Outcome first = shell(QStringLiteral("\"$VXROI\" crop %1 --ratio 1:1").arg(name));
        EXPECT_TRUE(first.err.contains("animated: only the first frame is used"));
        const Outcome all
            = shell(QStringLiteral("\"$VXROI\" crop %1 --ratio 1:1 --frames all --json -o out.%2 "
                                   "--if-exists overwrite --size 40x40")
                        .arg(name, QLatin1String(suffix)));
        EXPECT_EQ(all.exitCode, 64) << "two shapes, one name";
        const Outcome square
            = shell(QStringLiteral("\"$VXROI\" crop %1 --size 40x40 --frames all --json -o out.%2")
                        .arg(name, QLatin1String(suffix)));
        EXPECT_EQ(square.exitCode, 0) << square.err.toStdString();
        EXPECT_TRUE(square.err.isEmpty()) << square.err.toStdString();
        const QJsonObject record = QJsonDocument::fromJson(square.out).object();
        EXPECT_EQ(record.value(QStringLiteral("picture"))
                      .toObject()
                      .value(QStringLiteral("frames"))
                      .toInt(),
            12);
        const auto window = record.value(QStringLiteral("crops"))
                                .toArray()
                                .first()
                                .toObject()
                                .value(QStringLiteral("oriented"))
                                .toObject();
        // The spot's centres are from 20 to 108: the window shows the way, not where it began.
        EXPECT_GT(window.value(QStringLiteral("x")).toInt(), 5) << suffix;
        EXPECT_LT(window.value(QStringLiteral("x")).toInt(), 60) << suffix;

        const QString output = folder.path(QStringLiteral("out.") + QLatin1String(suffix));
        const VImage written
            = VImage::new_from_file(output.toUtf8().constData(), VImage::option()->set("n", -1));
        EXPECT_EQ(written.width(), 40) << suffix;
        EXPECT_EQ(written.height(), 12 * 40) << suffix;
        EXPECT_EQ(written.get_array_int("delay"), delays) << suffix;
        EXPECT_EQ(written.get_int("loop"), 3) << suffix;
        EXPECT_NE(
            written.extract_area(0, 0, 40, 40).avg(), written.extract_area(0, 240, 40, 40).avg());

        // What is cut out does not depend on whether the window had to be found.
        const QString cropped
            = QStringLiteral("\"$VXROI\" crop %1 --size 20x20 --focus 0.4,0.5 --frames all ")
                  .arg(name);
        for (const char* const how : { "-o found.%1", "--map in.png -o given.%1" })
            EXPECT_EQ(
                shell(cropped + QString::fromUtf8(how).arg(QLatin1String(suffix))).exitCode, 0);
        EXPECT_EQ(
            shell(QStringLiteral("cmp found.%1 given.%1").arg(QLatin1String(suffix))).exitCode, 0);

        const Outcome still
            = shell(QStringLiteral("\"$VXROI\" crop %1 --ratio 1:1 --frames all -o still-%2.jpg")
                        .arg(name, QLatin1String(suffix)));
        EXPECT_TRUE(still.err.contains("animated: jpeg holds only the first frame"))
            << still.err.toStdString();
        EXPECT_EQ(
            QImage(folder.path(QStringLiteral("still-%1.jpg").arg(QLatin1String(suffix)))).size(),
            QSize(82, 82));
    }
}
