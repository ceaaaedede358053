#include "Program.h"
#include "SampleFiles.h"
#include "support/Memory.h"

#include <QColorSpace>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <array>

namespace {

// Written files, as another program reads them.
class VxroiWriting : public testing::Test {
protected:
    const samples::SampleFolder folder;
    QString source;

    void SetUp() override
    {
        if (runShell(QStringLiteral("exiftool -ver")).exitCode != 0)
            GTEST_SKIP() << "exiftool is not installed";
        QImage picture = samples::picture({ 240, 160 });
        picture.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
        source = folder.save(samples::jpegWithOrientation(picture, 6), QStringLiteral("in.jpg"));
        const QString thumbnail
            = folder.save(samples::encoded(samples::picture({ 60, 40 }), "jpeg"),
                QStringLiteral("thumbnail.jpg"));
        const Outcome tagged = shell(QStringLiteral(
            "exiftool -q -overwrite_original -EXIF:Copyright='(c) Ann' -EXIF:Artist=Ann "
            "-EXIF:Make=Camera -GPSLatitude=3 -GPSLatitudeRef=N -XMP-dc:Rights='(c) Ann' "
            "-XMP-dc:Creator=Ann -XMP-dc:Subject=cat -XMP-tiff:Orientation#=6 "
            "-IPTC:CopyrightNotice='(c) Ann' -IPTC:Keywords=dog -XResolution=300 -YResolution=300 "
            "-ResolutionUnit=inches '-ThumbnailImage<=thumbnail.jpg' in.jpg"));
        ASSERT_EQ(tagged.exitCode, 0) << tagged.err.toStdString();
        ASSERT_FALSE(tagsOf(QStringLiteral("in.jpg"))
                         .value(QStringLiteral("IFD1:ThumbnailImage"))
                         .isUndefined());
    }

    Outcome shell(const QString& command) const
    {
        return runShell(QStringLiteral("cd '%1' && %2").arg(folder.path(QString()), command));
    }

    // Crops the source picture to the file \a output.
    Outcome crop(const QString& output, const QString& options = QString()) const
    {
        return shell(
            QStringLiteral("\"$VXROI\" crop in.jpg --ratio 1:1 --if-exists overwrite -o %1 %2")
                .arg(output, options));
    }

    // The tags by group and name, with unformatted values.
    QJsonObject tagsOf(const QString& file) const
    {
        const Outcome outcome = shell(QStringLiteral("exiftool -j -n -G1 -struct '%1'").arg(file));
        return QJsonDocument::fromJson(outcome.out).array().first().toObject();
    }

    static std::string text(const QJsonObject& tags, const char* name)
    {
        const QJsonValue value = tags.value(QLatin1String(name));
        return (value.isArray() ? value.toArray().first() : value)
            .toVariant()
            .toString()
            .toStdString();
    }
};

constexpr std::array<const char*, 7> formatsOfExif { "jpg", "png", "webp", "tif", "avif", "heic",
    "jxl" };

// The HEIC encoder leaks a kilobyte, which leak checkers report.
bool isTested(const char* suffix)
{
    return !support::isSanitized || QLatin1String(suffix) != QLatin1String("heic");
}

} // namespace

TEST_F(VxroiWriting, keepsMetadataAsFarAsFormatsHoldIt)
{
    for (const char* const suffix : formatsOfExif) {
        if (!isTested(suffix))
            continue;
        const QString output = QStringLiteral("out.") + QLatin1String(suffix);
        ASSERT_EQ(crop(output).exitCode, 0) << suffix;
        const QJsonObject tags = tagsOf(output);
        EXPECT_EQ(text(tags, "IFD0:Copyright"), "(c) Ann") << suffix;
        EXPECT_EQ(text(tags, "IFD0:Make"), "Camera") << suffix;
        EXPECT_EQ(text(tags, "GPS:GPSLatitude"), "3") << suffix;
        EXPECT_EQ(text(tags, "XMP-dc:Rights"), "(c) Ann") << suffix;
        EXPECT_EQ(text(tags, "XMP-dc:Subject"), "cat") << suffix;
        EXPECT_EQ(text(tags, "IFD0:XResolution"), "300") << suffix;
        EXPECT_TRUE(tags.value(QStringLiteral("IFD1:ThumbnailImage")).isUndefined()) << suffix;
        EXPECT_TRUE(tags.value(QStringLiteral("XMP-tiff:Orientation")).isUndefined()) << suffix;
        const std::string orientation = text(tags, "IFD0:Orientation");
        EXPECT_TRUE(orientation == "1" || orientation.empty()) << suffix << orientation;
    }
    for (const char* const name : { "out.jpg", "out.tif" }) {
        const QJsonObject tags = tagsOf(QLatin1String(name));
        EXPECT_EQ(text(tags, "IPTC:CopyrightNotice"), "(c) Ann") << name;
        EXPECT_EQ(text(tags, "IPTC:Keywords"), "dog") << name;
    }
}

TEST_F(VxroiWriting, keepsTheMetadataOfTiffAndJpegXl)
{
    for (const char* const suffix : { "tif", "jxl" }) {
        ASSERT_EQ(crop(QStringLiteral("middle.") + QLatin1String(suffix)).exitCode, 0);
        ASSERT_EQ(shell(QStringLiteral("\"$VXROI\" crop middle.%1 --ratio 2:1 -o %1.jpg")
                            .arg(QLatin1String(suffix)))
                      .exitCode,
            0);
        const QJsonObject tags = tagsOf(QLatin1String(suffix) + QStringLiteral(".jpg"));
        EXPECT_EQ(text(tags, "IFD0:Copyright"), "(c) Ann") << suffix;
        EXPECT_EQ(text(tags, "GPS:GPSLatitude"), "3") << suffix;
        EXPECT_EQ(text(tags, "XMP-dc:Rights"), "(c) Ann") << suffix;
    }
    EXPECT_EQ(text(tagsOf(QStringLiteral("tif.jpg")), "IPTC:CopyrightNotice"), "(c) Ann");
    ASSERT_EQ(crop(QStringLiteral("bare.tif"), QStringLiteral("--metadata strip")).exitCode, 0);
    ASSERT_EQ(
        shell(QStringLiteral("exiftool -q -overwrite_original -IPTC:CopyrightNotice='(c) Bob' "
                             "bare.tif && \"$VXROI\" crop bare.tif --ratio 2:1 -o iptc.jpg"))
            .exitCode,
        0);
    EXPECT_EQ(text(tagsOf(QStringLiteral("iptc.jpg")), "IPTC:CopyrightNotice"), "(c) Bob");
}

TEST_F(VxroiWriting, keepsNothingButTheCopyrightWhenAsked)
{
    for (const char* const suffix : formatsOfExif) {
        if (!isTested(suffix))
            continue;
        const QString output = QStringLiteral("out.") + QLatin1String(suffix);
        ASSERT_EQ(crop(output, QStringLiteral("--metadata copyright")).exitCode, 0) << suffix;
        const QJsonObject tags = tagsOf(output);
        EXPECT_EQ(text(tags, "IFD0:Copyright"), "(c) Ann") << suffix;
        EXPECT_EQ(text(tags, "IFD0:Artist"), "Ann") << suffix;
        EXPECT_EQ(text(tags, "XMP-dc:Rights"), "(c) Ann") << suffix;
        for (const char* const lost : { "IFD0:Make", "GPS:GPSLatitude", "XMP-dc:Subject",
                 "IPTC:Keywords", "IFD1:ThumbnailImage" })
            EXPECT_TRUE(tags.value(QLatin1String(lost)).isUndefined()) << suffix << ' ' << lost;
    }
    ASSERT_EQ(crop(QStringLiteral("out.jpg"), QStringLiteral("--metadata copyright")).exitCode, 0);
    EXPECT_EQ(text(tagsOf(QStringLiteral("out.jpg")), "IPTC:CopyrightNotice"), "(c) Ann");
}

TEST_F(VxroiWriting, keepsNothingButColoursAndResolutionWhenAsked)
{
    for (const char* const suffix : formatsOfExif) {
        if (!isTested(suffix))
            continue;
        const QString output = QStringLiteral("out.") + QLatin1String(suffix);
        ASSERT_EQ(crop(output, QStringLiteral("--metadata strip")).exitCode, 0) << suffix;
        const QJsonObject tags = tagsOf(output);
        for (const QString& tag : tags.keys())
            EXPECT_FALSE(tags.value(tag).toVariant().toString().contains(QLatin1String("Ann")))
                << suffix << ' ' << tag.toStdString();
        EXPECT_TRUE(tags.value(QStringLiteral("GPS:GPSLatitude")).isUndefined()) << suffix;
    }
    const QJsonObject tags = tagsOf(QStringLiteral("out.jpg"));
    EXPECT_EQ(text(tags, "IFD0:XResolution"), "300");
    EXPECT_FALSE(text(tags, "ICC_Profile:ProfileDescription").empty());
}

TEST_F(VxroiWriting, keepsTextsOfAPngThatNameItsAuthor)
{
    QImage picture = samples::picture({ 60, 40 });
    picture.setText(QStringLiteral("Author"), QStringLiteral("Ann"));
    picture.setText(QStringLiteral("Comment"), QStringLiteral("of a walk"));
    folder.save(picture, QStringLiteral("texts.png"));
    const auto tagsAfter = [&](const char* metadata) {
        EXPECT_EQ(
            shell(QStringLiteral("\"$VXROI\" crop texts.png --ratio 1:1 -o o.png --metadata %1 "
                                 "--if-exists overwrite")
                      .arg(QLatin1String(metadata)))
                .exitCode,
            0);
        return tagsOf(QStringLiteral("o.png"));
    };
    EXPECT_EQ(text(tagsAfter("keep"), "PNG:Comment"), "of a walk");
    EXPECT_EQ(text(tagsAfter("copyright"), "PNG:Author"), "Ann");
    EXPECT_EQ(text(tagsAfter("copyright"), "PNG:Comment"), "");
    EXPECT_EQ(text(tagsAfter("strip"), "PNG:Author"), "");
}

TEST_F(VxroiWriting, keepsTheProfileOrConvertsToSrgb)
{
    const QImage adobe(source);
    for (const char* const suffix : { "jpg", "png", "webp", "tif", "avif", "heic" }) {
        if (!isTested(suffix))
            continue;
        const QString output = QStringLiteral("out.") + QLatin1String(suffix);
        ASSERT_EQ(crop(output).exitCode, 0) << suffix;
        EXPECT_FALSE(text(tagsOf(output), "ICC_Profile:ProfileDescription").empty()) << suffix;
        ASSERT_EQ(crop(output, QStringLiteral("--to-srgb")).exitCode, 0) << suffix;
        EXPECT_TRUE(text(tagsOf(output), "ICC_Profile:ProfileDescription").empty()) << suffix;
    }
    // The same green has other levels in sRGB.
    QImage green(64, 64, QImage::Format_RGB32);
    green.fill(qRgb(80, 160, 80));
    green.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    folder.save(green, QStringLiteral("in.png"));
    ASSERT_EQ(
        shell(QStringLiteral("\"$VXROI\" crop in.png --ratio 1:1 -o green.png --to-srgb")).exitCode,
        0);
    const QColor expected
        = QColor::fromRgb(green.convertedToColorSpace(QColorSpace(QColorSpace::SRgb)).pixel(3, 3));
    const QColor written(QImage(folder.path(QStringLiteral("green.png"))).pixel(3, 3));
    EXPECT_LT(expected.red(), 40) << "far from 80";
    EXPECT_NEAR(written.red(), expected.red(), 2);
    EXPECT_NEAR(written.green(), expected.green(), 2);
    EXPECT_NEAR(written.blue(), expected.blue(), 2);
}

TEST_F(VxroiWriting, keepsTheDepthWhereTheFormatCan)
{
    folder.save(samples::picture({ 60, 40 }).convertToFormat(QImage::Format_RGBX64),
        QStringLiteral("deep.png"));
    const auto depthIn = [&](const char* suffix, const char* tag) {
        const QString output = QStringLiteral("deep-out.") + QLatin1String(suffix);
        EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" crop deep.png --ratio 1:1 -o %1").arg(output))
                      .exitCode,
            0)
            << suffix;
        return text(tagsOf(output), tag);
    };
    EXPECT_EQ(depthIn("png", "PNG:BitDepth"), "16");
    EXPECT_EQ(depthIn("tif", "IFD0:BitsPerSample"), "16 16 16");
    EXPECT_EQ(depthIn("ppm", "File:MaxVal"), "65535");
    EXPECT_EQ(depthIn("jpg", "File:BitsPerSample"), "8");
    EXPECT_EQ(depthIn("avif", "QuickTime:ImagePixelDepth"), "12 12 12");
}

TEST_F(VxroiWriting, keepsTheChromaOfTheSourceUnlessToldOtherwise)
{
    const auto subsampling = [&](const QString& options) {
        EXPECT_EQ(crop(QStringLiteral("c.jpg"), options).exitCode, 0);
        return text(tagsOf(QStringLiteral("c.jpg")), "File:YCbCrSubSampling");
    };
    EXPECT_EQ(text(tagsOf(QStringLiteral("in.jpg")), "File:YCbCrSubSampling"), "2 2");
    EXPECT_EQ(subsampling(QString()), "2 2");
    EXPECT_EQ(subsampling(QStringLiteral("--chroma 444")), "1 1");
    ASSERT_EQ(shell(QStringLiteral("mv c.jpg in.jpg")).exitCode, 0);
    EXPECT_EQ(subsampling(QString()), "1 1");
    EXPECT_EQ(subsampling(QStringLiteral("--chroma 420")), "2 2");
    folder.save(samples::picture({ 60, 40 }), QStringLiteral("in.png"));
    ASSERT_EQ(shell(QStringLiteral("\"$VXROI\" crop in.png --ratio 1:1 -o png.jpg")).exitCode, 0);
    EXPECT_EQ(text(tagsOf(QStringLiteral("png.jpg")), "File:YCbCrSubSampling"), "1 1")
        << "a PNG has full colours";
}

TEST_F(VxroiWriting, writesWithTheQualityAndTheProgressionAskedFor)
{
    for (const char* const suffix : { "jpg", "webp", "jxl", "avif", "heic" }) {
        if (!isTested(suffix))
            continue;
        const QString output = QStringLiteral("q.") + QLatin1String(suffix);
        const auto bytesAt = [&](const char* options) {
            EXPECT_EQ(crop(output, QLatin1String(options)).exitCode, 0) << suffix;
            return QFile(folder.path(output)).size();
        };
        EXPECT_LT(bytesAt("--quality 30"), bytesAt("")) << suffix;
        EXPECT_GT(bytesAt("--quality 99"), bytesAt("")) << suffix;
    }
    const auto process = [&](const char* options) {
        EXPECT_EQ(crop(QStringLiteral("p.jpg"), QLatin1String(options)).exitCode, 0);
        return text(tagsOf(QStringLiteral("p.jpg")), "File:EncodingProcess");
    };
    EXPECT_EQ(process(""), "0") << "baseline";
    EXPECT_EQ(process("--progressive"), "2") << "progressive";
    ASSERT_EQ(crop(QStringLiteral("p.png"), QStringLiteral("--progressive")).exitCode, 0);
    EXPECT_EQ(text(tagsOf(QStringLiteral("p.png")), "PNG:Interlace"), "1");
}

TEST_F(VxroiWriting, writesTheFormatAskedForWhateverTheNameSays)
{
    ASSERT_EQ(
        crop(QStringLiteral("'{stem}-x.{ext}'"), QStringLiteral("--format webp")).exitCode, 0);
    EXPECT_EQ(text(tagsOf(QStringLiteral("in-x.webp")), "File:MIMEType"), "image/webp");
    ASSERT_EQ(crop(QStringLiteral("name"), QStringLiteral("--format gif")).exitCode, 0);
    EXPECT_EQ(text(tagsOf(QStringLiteral("name")), "File:MIMEType"), "image/gif");
    EXPECT_EQ(crop(QStringLiteral("name"), QStringLiteral("--format tga")).exitCode, 64);
}

TEST_F(VxroiWriting, putsTheBackgroundBelowTransparentPixels)
{
    QImage clear(40, 40, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    folder.save(clear, QStringLiteral("clear.png"));
    const auto colourOn = [&](const char* background) {
        const Outcome outcome
            = shell(QStringLiteral("\"$VXROI\" crop clear.png --ratio 1:1 --background %1 -o b.ppm "
                                   "--if-exists overwrite")
                        .arg(QLatin1String(background)));
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
        return QImage(folder.path(QStringLiteral("b.ppm"))).pixel(7, 7);
    };
    EXPECT_EQ(colourOn("'#0080ff'"), qRgb(0, 128, 255));
    EXPECT_EQ(colourOn("transparent"), qRgb(255, 255, 255)) << "a PPM has no transparency";
}

TEST_F(VxroiWriting, putsTheBackgroundAroundSmallCrops)
{
    QImage red(40, 40, QImage::Format_RGB32);
    red.fill(Qt::red);
    folder.save(red, QStringLiteral("red.png"));
    const auto padded = [&](const char* background) {
        const Outcome outcome
            = shell(QStringLiteral("\"$VXROI\" crop red.png --size 100x60 --fit pad --background "
                                   "%1 -o p.png --if-exists overwrite")
                        .arg(QLatin1String(background)));
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_TRUE(outcome.err.isEmpty()) << outcome.err.toStdString();
        const QImage picture(folder.path(QStringLiteral("p.png")));
        EXPECT_EQ(picture.size(), QSize(100, 60));
        // The crop of 40 x 24 pixels is in the centre.
        for (const QPoint& inside : { QPoint(50, 30), QPoint(30, 30), QPoint(69, 41) })
            EXPECT_EQ(picture.pixel(inside), qRgb(255, 0, 0));
        for (const QPoint& outside : { QPoint(29, 30), QPoint(70, 41) })
            EXPECT_NE(picture.pixel(outside), qRgb(255, 0, 0));
        return picture.pixel(0, 0);
    };
    EXPECT_EQ(padded("white"), qRgb(255, 255, 255));
    EXPECT_EQ(padded("'#102030'"), qRgb(16, 32, 48));
    EXPECT_EQ(qAlpha(padded("transparent")), 0);
}

TEST_F(VxroiWriting, refusesAnUnknownColour)
{
    EXPECT_EQ(crop(QStringLiteral("x.png"), QStringLiteral("--background nocolour")).exitCode, 64);
}

TEST_F(VxroiWriting, saysThatACropIsSmallerThanItsSize)
{
    const QString command = QStringLiteral("\"$VXROI\" crop in.jpg --size 1200x630 ");
    const Outcome outcome = shell(command + QStringLiteral("-o s.jpg --json"));
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.err.toStdString(),
        "vxroi: in.jpg: the crop for 1200x630 has only 160 x 84 pixels; --upscale enlarges it, "
        "--fit pad puts background around it\n");
    const QJsonArray warnings
        = QJsonDocument::fromJson(outcome.out).object().value(QStringLiteral("warnings")).toArray();
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings.first().toString().startsWith(QStringLiteral("the crop for 1200x630")));
    EXPECT_TRUE(shell(command + QStringLiteral("--upscale")).err.isEmpty());
}

TEST_F(VxroiWriting, keepsTheMetadataOfAPng)
{
    ASSERT_EQ(crop(QStringLiteral("middle.png")).exitCode, 0);
    for (const char* const kept : { "keep", "copyright" }) {
        for (const char* const suffix : formatsOfExif) {
            if (!isTested(suffix))
                continue;
            const QString output = QStringLiteral("of-png.") + QLatin1String(suffix);
            const QString command = QStringLiteral("\"$VXROI\" crop middle.png --ratio 2:1 "
                                                   "--if-exists overwrite -o %1 --metadata %2");
            ASSERT_EQ(shell(command.arg(output, QLatin1String(kept))).exitCode, 0);
            const QJsonObject tags = tagsOf(output);
            EXPECT_EQ(text(tags, "IFD0:Copyright"), "(c) Ann") << kept << suffix;
            EXPECT_EQ(text(tags, "XMP-dc:Rights"), "(c) Ann") << kept << suffix;
        }
    }
}

TEST_F(VxroiWriting, keepsTheProfileBesideMetadataThatIsDamaged)
{
    ASSERT_EQ(shell(QStringLiteral("exiftool -q -overwrite_original '-XMP<=/dev/null' in.jpg; "
                                   "printf 'no <xmp' > broken.xmp; "
                                   "exiftool -q -overwrite_original '-XMP<=broken.xmp' in.jpg"))
                  .exitCode,
        0);
    ASSERT_EQ(crop(QStringLiteral("out.jpg")).exitCode, 0);
    const QJsonObject tags = tagsOf(QStringLiteral("out.jpg"));
    EXPECT_FALSE(text(tags, "ICC_Profile:ProfileDescription").empty());
    EXPECT_EQ(text(tags, "IFD0:Copyright"), "(c) Ann");
}

TEST_F(VxroiWriting, writesDeepAndTransparentPicturesAsJpegXl)
{
    QImage deep = samples::picture({ 60, 40 }).convertToFormat(QImage::Format_RGBA64);
    deep.setPixelColor(3, 3, Qt::transparent);
    deep.setDotsPerMeterX(11811);
    deep.setDotsPerMeterY(11811);
    folder.save(deep, QStringLiteral("deep.png"));
    ASSERT_EQ(
        shell(QStringLiteral("\"$VXROI\" crop deep.png --ratio 1:1 -o deep.jxl")).exitCode, 0);
    const Outcome read = shell(QStringLiteral("\"$VXROI\" crop deep.jxl --ratio 2:1"));
    EXPECT_EQ(read.exitCode, 0) << read.err.toStdString();
    EXPECT_EQ(text(tagsOf(QStringLiteral("deep.jxl")), "IFD0:XResolution"), "300");
}

TEST_F(VxroiWriting, convertsToSrgbWhereTheFormatHoldsNoProfile)
{
    QImage green(64, 64, QImage::Format_RGB32);
    green.fill(qRgb(80, 160, 80));
    green.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    folder.save(green, QStringLiteral("green.png"));
    for (const char* const suffix : { "ppm", "gif", "bmp" }) {
        ASSERT_EQ(
            shell(QStringLiteral("\"$VXROI\" crop green.png --ratio 1:1 -o g.%1 && \"$VXROI\" "
                                 "crop g.%1 --ratio 1:1 -o %1.png")
                      .arg(QLatin1String(suffix)))
                .exitCode,
            0);
        const QImage written(folder.path(QLatin1String(suffix) + QStringLiteral(".png")));
        EXPECT_LT(qRed(written.pixel(9, 9)), 40) << suffix << ", where AdobeRGB has 80";
    }
}

TEST_F(VxroiWriting, writesGreyMapsAsSuchAndTheSameBytesAgain)
{
    const auto bytesOf = [&](const char* name) {
        EXPECT_EQ(crop(QLatin1String(name)).exitCode, 0) << name;
        QFile file(folder.path(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    EXPECT_TRUE(bytesOf("a.pgm").startsWith("P5"));
    EXPECT_EQ(bytesOf("a.ppm"), bytesOf("b.ppm")) << "without the time";
    EXPECT_TRUE(bytesOf("a.ppm").startsWith("P6"));
    EXPECT_EQ(crop(QStringLiteral("a.pbm")).exitCode, 73) << "a crop is no bitmap";
}

TEST_F(VxroiWriting, takesOpacityLastInABackground)
{
    folder.save(samples::picture({ 40, 40 }), QStringLiteral("small.png"));
    ASSERT_EQ(shell(QStringLiteral("\"$VXROI\" crop small.png --size 80x40 --fit pad "
                                   "--background '#ff800080' -o p.png"))
                  .exitCode,
        0);
    EXPECT_EQ(QImage(folder.path(QStringLiteral("p.png"))).pixel(0, 0), qRgba(255, 128, 0, 128));
    QImage grey = samples::picture({ 40, 40 }).convertToFormat(QImage::Format_Grayscale8);
    folder.save(grey, QStringLiteral("grey.png"));
    ASSERT_EQ(shell(QStringLiteral("\"$VXROI\" crop grey.png --size 80x40 --fit pad "
                                   "--background '#ff8000' -o q.png"))
                  .exitCode,
        0);
    EXPECT_EQ(QImage(folder.path(QStringLiteral("q.png"))).pixel(0, 0), qRgb(255, 128, 0));
}
