#include "Program.h"
#include "SampleFiles.h"
#include "support/ImageAssert.h"
#include "support/Memory.h"

#include <VXCrop/VXCrop.h>

#include <QFileInfo>
#include <QRegularExpression>

#include <sys/resource.h>

namespace {

class VxroiCrop : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 1200, 800 });

    Outcome crop(const QString& path, const QString& ratio, const QStringList& more = {}) const
    {
        return runVxroi(
            QStringList { QStringLiteral("crop"), path, QStringLiteral("--ratio"), ratio } + more);
    }

    static QRect windowFrom(const QByteArray& line)
    {
        static const QRegularExpression geometry(
            QStringLiteral(R"(\A(\d+)x(\d+)\+(\d+)\+(\d+)\n\z)"));
        const QRegularExpressionMatch match = geometry.match(QString::fromUtf8(line));
        EXPECT_TRUE(match.hasMatch()) << line.toStdString();
        return QRect(match.captured(3).toInt(), match.captured(4).toInt(),
            match.captured(1).toInt(), match.captured(2).toInt());
    }

    void expectFailure(const Outcome& outcome, int exitCode, const QString& named) const
    {
        EXPECT_EQ(outcome.exitCode, exitCode) << outcome.err.toStdString();
        EXPECT_TRUE(isOneLineNaming(outcome.err, named)) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.out.isEmpty()) << outcome.out.toStdString();
    }
};

} // namespace

TEST_F(VxroiCrop, printsTheWindowThatTheLibraryChooses)
{
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    const Outcome outcome = crop(path, QStringLiteral("1:1"));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.isEmpty());
    const QRect expected = VXCrop(picture).window({ 1, 1 }).window;
    EXPECT_EQ(windowFrom(outcome.out), expected);
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") }) << "writes nothing";
}

TEST_F(VxroiCrop, writesExactlyThePixelsOfTheWindow)
{
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    const QString output = folder.path(QStringLiteral("cropped.png"));
    const Outcome outcome = crop(path, QStringLiteral("4:5"), { QStringLiteral("-o"), output });
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    const QImage expected = picture.copy(windowFrom(outcome.out));
    EXPECT_EQ(expected.size(), QSize(640, 800));
    EXPECT_TRUE(support::sameImage(expected.convertToFormat(QImage::Format_ARGB32),
        QImage(output).convertToFormat(QImage::Format_ARGB32)));
}

TEST_F(VxroiCrop, keepsTheTransparencyOfWhatItWrites)
{
    QImage transparent = picture.convertToFormat(QImage::Format_ARGB32);
    transparent.setPixel(600, 400, qRgba(10, 20, 30, 40));
    const QString path = folder.save(transparent, QStringLiteral("alpha.png"));
    const QString output = folder.path(QStringLiteral("cropped.png"));
    const QRect window
        = windowFrom(crop(path, QStringLiteral("1:1"), { QStringLiteral("-o"), output }).out);
    EXPECT_EQ(QImage(output).pixel(QPoint(600, 400) - window.topLeft()), qRgba(10, 20, 30, 40));
}

TEST_F(VxroiCrop, readsEveryKindOfPicture)
{
    const QByteArray png = samples::encoded(picture, "png");
    const QStringList paths {
        folder.save(picture, QStringLiteral("picture.jpg")),
        folder.save(picture, QStringLiteral("picture.bmp")),
        folder.save(picture.convertToFormat(QImage::Format_Grayscale8), QStringLiteral("grey.png")),
        folder.save(
            picture.convertToFormat(QImage::Format_Indexed8), QStringLiteral("palette.png")),
        folder.save(picture.convertToFormat(QImage::Format_ARGB32), QStringLiteral("alpha.png")),
        folder.save(picture.convertToFormat(QImage::Format_RGBA64), QStringLiteral("16-bit.png")),
        folder.save(picture.convertToFormat(QImage::Format_Mono), QStringLiteral("mono.png")),
        folder.save(png, QStringLiteral("png-called.jpg")),
        folder.save(png, QStringLiteral("no-suffix")),
        folder.save(png, QStringLiteral("Grüße an Łódź.png")),
    };
    for (const QString& path : paths) {
        const Outcome outcome = crop(path, QStringLiteral("1:1"));
        EXPECT_EQ(outcome.exitCode, 0) << path.toStdString() << outcome.err.toStdString();
        EXPECT_EQ(windowFrom(outcome.out).size(), QSize(800, 800)) << path.toStdString();
    }
}

TEST_F(VxroiCrop, cropsARotatedJpegAsItIsSeen)
{
    const QString path
        = folder.save(samples::jpegWithOrientation(picture, 6), QStringLiteral("rotated.jpg"));
    const QString output = folder.path(QStringLiteral("cropped.jpg"));
    const Outcome outcome = crop(path, QStringLiteral("1:2"), { QStringLiteral("-o"), output });
    EXPECT_EQ(windowFrom(outcome.out).size(), QSize(600, 1200));
    EXPECT_EQ(QImage(output).size(), QSize(600, 1200));
}

TEST_F(VxroiCrop, cropsTheSmallestAndTheLongestPictures)
{
    for (const QSize& size : { QSize(1, 1), QSize(1, 20000), QSize(20000, 1), QSize(3, 2) }) {
        const QString path = folder.save(picture.scaled(size), QStringLiteral("extreme.png"));
        const Outcome outcome = crop(path, QStringLiteral("1:1"));
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
        const QRect window = windowFrom(outcome.out);
        EXPECT_TRUE(QRect(QPoint(), size).contains(window));
        EXPECT_EQ(window.width(), window.height());
    }
}

TEST_F(VxroiCrop, refusesMissingAndEmptyAndForeignAndTruncatedFiles)
{
    const QString output = folder.path(QStringLiteral("out.png"));
    const QStringList writing { QStringLiteral("-o"), output };
    const QString ratio = QStringLiteral("1:1");
    const QString none = folder.path(QStringLiteral("none.jpg"));
    expectFailure(crop(none, ratio, writing), 66, none);
    expectFailure(crop(folder.path(QString()), ratio, writing), 66, folder.path(QString()));
    const QString empty = folder.save(QByteArray(), QStringLiteral("empty.jpg"));
    expectFailure(crop(empty, ratio, writing), 65, empty);
    const QString text = folder.save(QByteArray("hello, world"), QStringLiteral("text.png"));
    expectFailure(crop(text, ratio, writing), 65, text);
    for (const char* const format : { "png", "jpg" }) {
        const QString part = folder.save(
            samples::truncated(samples::encoded(picture, format), 60), QStringLiteral("part.pic"));
        expectFailure(crop(part, ratio, writing), 65, part);
    }
    EXPECT_FALSE(QFile::exists(output));
}

TEST_F(VxroiCrop, staysOnOneLineForAFileNameOfSeveralLines)
{
    const QString path = folder.path(QStringLiteral("two\nlines\r.png"));
    expectFailure(crop(path, QStringLiteral("1:1")), 66, QStringLiteral("two?lines?.png"));
}

TEST_F(VxroiCrop, takesNamesInBracketsForNames)
{
    const QString path = folder.save(samples::encoded(picture, "png"), QStringLiteral("[1,2]"));
    const Outcome outcome
        = runShell(QStringLiteral("cd '%1' && exec \"$VXROI\" crop '[1,2]' --ratio 1:1")
                       .arg(QFileInfo(path).path()));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
}

TEST_F(VxroiCrop, endsWith130OnASignalAndLeavesNothing)
{
    for (const char* const signal : { "INT", "TERM", "HUP" }) {
        // The shell opens the pipe when the program has done so.
        const Outcome outcome = runShell(QStringLiteral(
            "cd '%1'; rm -f pipe; mkfifo pipe; \"$VXROI\" crop pipe --ratio 1:1 -o a.png & "
            "exec 3> pipe; kill -%2 $!; wait $!")
                                             .arg(folder.path(QString()), QLatin1String(signal)));
        EXPECT_EQ(outcome.exitCode, 130) << signal;
        EXPECT_EQ(outcome.err, "vxroi: interrupted\n");
        EXPECT_FALSE(QFile::exists(folder.path(QStringLiteral("a.png"))));
    }
}

TEST_F(VxroiCrop, refusesABadRatioBeforeItLooksAtThePicture)
{
    for (const char* const bad : { "0:1", "1:", "wide", "16x9", "-4:3" }) {
        const QString ratio = QString::fromUtf8(bad);
        expectFailure(crop(QStringLiteral("none.png"), ratio), 64, ratio);
    }
}

TEST_F(VxroiCrop, refusesAnOutputThatCannotBeCreated)
{
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    for (const char* const name : { "no/such/folder/a.png", "a.xyz", "no-suffix", "picture.png" }) {
        const QString output = folder.path(QString::fromUtf8(name));
        expectFailure(
            crop(path, QStringLiteral("1:1"), { QStringLiteral("-o"), output }), 73, output);
    }
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") });
    EXPECT_TRUE(support::sameImage(picture, QImage(path).convertToFormat(QImage::Format_RGB32)));
}

TEST_F(VxroiCrop, leavesNothingBehindWhenWritingFails)
{
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    const QString output = folder.path(QStringLiteral("cropped.png"));
    // No file may grow beyond a few kilobytes, as on a full disk.
    const Outcome outcome = runShell(QStringLiteral("ulimit -f 4; "
                                                    "exec \"$VXROI\" crop '%1' --ratio 1:1 -o '%2'")
                                         .arg(path, output));
    expectFailure(outcome, 74, output);
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") });
}

TEST_F(VxroiCrop, saysWhatToAllowWhereNoFileCanBeOpened)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer opens files itself, and reports what it cannot look at";
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    for (int most = 4; most < 16; ++most) {
        const Outcome outcome
            = runShell(QStringLiteral("ulimit -n %1; exec \"$VXROI\" crop '%2' --ratio 1:1")
                           .arg(most)
                           .arg(path));
        constexpr int notLoaded = 127; // of the system's loader, which found none itself
        if (outcome.exitCode == 0 || outcome.exitCode == notLoaded)
            continue;
        EXPECT_TRUE(outcome.exitCode == 70 || outcome.exitCode == 66) << most;
        EXPECT_TRUE(outcome.err.endsWith("allow more, see ulimit -n\n"))
            << outcome.err.toStdString();
        EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.toStdString();
    }
}

TEST_F(VxroiCrop, namesTheOptionThatHelps)
{
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    const auto expectRemedy = [&](const char* command, int exitCode, const char* remedy) {
        const Outcome outcome = runShell(QString::fromUtf8(command).arg(path));
        expectFailure(outcome, exitCode, QString());
        EXPECT_TRUE(outcome.err.endsWith(QByteArray("; ") + remedy + '\n'))
            << outcome.err.toStdString();
    };
    expectRemedy("\"$VXROI\" crop '%1' --ratio 1:1 --max-pixels 10", 65,
        "allow them with --max-pixels 960000");
    expectRemedy(
        "\"$VXROI\" crop '%1' --ratio 1:1 --max-bytes 10", 65, "allow more with --max-bytes");
    expectRemedy("(sleep 2; cat '%1') | \"$VXROI\" crop - --ratio 1:1 --max-seconds 1", 65,
        "allow more with --max-seconds");
    expectRemedy("cp '%1' '%1.png' && \"$VXROI\" crop '%1' --ratio 1:1 -o '%1.png'", 73,
        "choose another name or another --if-exists");
}

TEST_F(VxroiCrop, saysSoWhenTheWindowCannotBePrinted)
{
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    const Outcome outcome
        = runShell(QStringLiteral("exec \"$VXROI\" crop '%1' --ratio 1:1 > /dev/full").arg(path));
    expectFailure(outcome, 74, QStringLiteral("standard output"));
}

TEST_F(VxroiCrop, refusesASmallFileThatClaimsAHugePictureBeforeItTakesMemory)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer reserves more memory than that";
    const QByteArray bomb = samples::pngClaiming({ 20000, 20000 }, 48000);
    EXPECT_GE(bomb.size(), 40000);
    const QString path = folder.save(bomb, QStringLiteral("bomb.png"));
    const Outcome outcome = runShell(
        QStringLiteral("ulimit -d 500000; exec \"$VXROI\" crop '%1' --ratio 1:1").arg(path));
    expectFailure(outcome, 65, QStringLiteral("--max-pixels 400000000"));
}

TEST_F(VxroiCrop, holdsLessThan250MegabytesFor24Megapixels)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer's own memory counts";
    const QSize size(6000, 4000);
    const QString plain
        = folder.save(samples::encoded(samples::picture(size), "jpg"), QStringLiteral("large.jpg"));
    const QString turned = folder.save(
        samples::jpegWithOrientation(samples::picture(size), 6), QStringLiteral("turned.jpg"));
    const QString output = folder.path(QStringLiteral("cropped.jpg"));
    for (const QString& path : { plain, turned }) {
        const Outcome outcome = crop(path, QStringLiteral("4:3"),
            { QStringLiteral("-o"), output, QStringLiteral("--if-exists"),
                QStringLiteral("overwrite") });
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    }
    rusage children {};
    getrusage(RUSAGE_CHILDREN, &children);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): how the system header declares it
    EXPECT_LT(children.ru_maxrss, 250L * 1000 * 1000 / 1024) << "KiB";
}
