#include "Program.h"
#include "SampleFiles.h"

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>
#include <vips/vips8>

#include <string>
#include <vector>

namespace {

using vips::VImage;

// Animations of twelve frames in which a spot moves from the left to the middle: moving.gif and moving.webp.
class VxroiAnimations : public testing::Test {
protected:
    static constexpr int frameCount = 12;
    const samples::SampleFolder folder;
    std::vector<int> delays;

    void SetUp() override
    {
        ASSERT_EQ(VIPS_INIT("test"), 0);
        std::vector<VImage> frames;
        for (int i = 0; i < frameCount; ++i) {
            VImage frame = VImage::black(240, 82, VImage::option()->set("bands", 3)) + 90;
            frame = frame.cast(VIPS_FORMAT_UCHAR).copy_memory();
            frame.draw_circle(
                { 255, 40, 20 }, 20 + 8 * i, 40, 12, VImage::option()->set("fill", true));
            frames.push_back(
                frame.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB)));
            delays.push_back(40 + 10 * i);
        }
        VImage strip = VImage::arrayjoin(frames, VImage::option()->set("across", 1)).copy();
        strip.set("page-height", 82);
        strip.set("delay", delays);
        strip.set("loop", 3);
        for (const QString& suffix : suffixes())
            strip.write_to_file(folder.path(QStringLiteral("moving.") + suffix).toUtf8());
    }

    static QStringList suffixes() { return { QStringLiteral("gif"), QStringLiteral("webp") }; }

    // Runs a command line in the folder, with the suffix in place of every %1.
    Outcome vxroi(const char* arguments, const QString& suffix) const
    {
        return runShell(QStringLiteral("cd '%1' && \"$VXROI\" ").arg(folder.path(QString()))
            + QString::fromLatin1(arguments).arg(suffix));
    }
};

} // namespace

TEST_F(VxroiAnimations, cropsTheFirstFrameUnlessAskedAndSaysSo)
{
    for (const QString& suffix : suffixes()) {
        const Outcome outcome = vxroi("crop moving.%1 --ratio 1:1", suffix);
        EXPECT_TRUE(outcome.err.contains("animated: only the first frame is used"));
    }
}

TEST_F(VxroiAnimations, refusesOneNameForTwoShapes)
{
    for (const QString& suffix : suffixes()) {
        const Outcome outcome = vxroi(
            "crop moving.%1 --ratio 1:1 --size 40x40 --frames all --json -o out.%1", suffix);
        EXPECT_EQ(outcome.exitCode, 64);
    }
}

TEST_F(VxroiAnimations, chooseOneWindowForTheWholeMovement)
{
    for (const QString& suffix : suffixes()) {
        const Outcome outcome = vxroi("crop moving.%1 --size 40x40 --frames all --json", suffix);
        ASSERT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.isEmpty()) << outcome.err.toStdString();
        const QJsonObject record = QJsonDocument::fromJson(outcome.out).object();
        const QJsonObject picture = record.value(QStringLiteral("picture")).toObject();
        EXPECT_EQ(picture.value(QStringLiteral("frames")).toInt(), frameCount);
        const QJsonObject crop = record.value(QStringLiteral("crops")).toArray().first().toObject();
        const QJsonObject window = crop.value(QStringLiteral("oriented")).toObject();
        // The spot's centre moves from 20 to 108: the window shows this way, not only its start.
        EXPECT_GT(window.value(QStringLiteral("x")).toInt(), 5) << suffix.toStdString();
        EXPECT_LT(window.value(QStringLiteral("x")).toInt(), 60) << suffix.toStdString();
    }
}

TEST_F(VxroiAnimations, keepTheirFramesDelaysAndLoops)
{
    for (const QString& suffix : suffixes()) {
        ASSERT_EQ(vxroi("crop moving.%1 --size 40x40 --frames all -o out.%1", suffix).exitCode, 0);
        const std::string output = folder.path(QStringLiteral("out.") + suffix).toStdString();
        const VImage written
            = VImage::new_from_file(output.c_str(), VImage::option()->set("n", -1));
        EXPECT_EQ(written.width(), 40) << output;
        EXPECT_EQ(written.height(), frameCount * 40) << output;
        EXPECT_EQ(written.get_array_int("delay"), delays) << output;
        EXPECT_EQ(written.get_int("loop"), 3) << output;
        EXPECT_NE(
            written.extract_area(0, 0, 40, 40).avg(), written.extract_area(0, 240, 40, 40).avg())
            << "the spot has moved";
    }
}

TEST_F(VxroiAnimations, haveTheSamePixelsWhetherTheMapIsComputedOrGiven)
{
    folder.save(samples::picture({ 120, 80 }), QStringLiteral("map.png"));
    for (const QString& suffix : suffixes()) {
        for (const char* const how : { "-o computed.%1", "--map map.png -o given.%1" }) {
            const QByteArray crop = "crop moving.%1 --size 20x20 --focus 0.4,0.5 --frames all ";
            EXPECT_EQ(vxroi((crop + how).constData(), suffix).exitCode, 0);
        }
        QFile computed(folder.path(QStringLiteral("computed.") + suffix));
        QFile given(folder.path(QStringLiteral("given.") + suffix));
        ASSERT_TRUE(computed.open(QIODevice::ReadOnly) && given.open(QIODevice::ReadOnly));
        EXPECT_TRUE(computed.readAll() == given.readAll()) << suffix.toStdString();
    }
}

TEST_F(VxroiAnimations, becomeTheirFirstFrameInAFormatWithoutFrames)
{
    for (const QString& suffix : suffixes()) {
        const Outcome outcome
            = vxroi("crop moving.%1 --ratio 1:1 --frames all -o still-%1.jpg", suffix);
        EXPECT_TRUE(outcome.err.contains("animated: jpeg holds only the first frame"))
            << outcome.err.toStdString();
        const QString output = folder.path(QStringLiteral("still-%1.jpg").arg(suffix));
        EXPECT_EQ(QImage(output).size(), QSize(82, 82));
    }
}
