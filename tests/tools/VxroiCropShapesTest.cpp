#include "Program.h"
#include "SampleFiles.h"
#include "support/ImageAssert.h"

#include <QColorSpace>
#include <QDir>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace {

// The shapes, sizes and constraints of crops, and their outputs.
class VxroiCropShapes : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 1200, 800 });
    const QString path = folder.save(picture, QStringLiteral("picture.png"));

    static QStringList words(const QString& line)
    {
        return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

    Outcome crop(const QString& options) const
    {
        return runVxroi(QStringList { QStringLiteral("crop"), path } + words(options));
    }

    static QJsonObject recordFrom(const Outcome& outcome)
    {
        EXPECT_EQ(outcome.out.count('\n'), 1) << outcome.err.toStdString();
        return QJsonDocument::fromJson(outcome.out).object();
    }

    static QJsonObject cropOf(const QJsonObject& record, int index)
    {
        return record.value(QStringLiteral("crops")).toArray().at(index).toObject();
    }

    static QRect rectOf(const QJsonObject& object, const char* name)
    {
        const QJsonObject rect = object.value(QLatin1String(name)).toObject();
        const auto number
            = [&rect](const char* side) { return rect.value(QLatin1String(side)).toInt(-1); };
        return QRect(number("x"), number("y"), number("width"), number("height"));
    }

    static QString decider(const QJsonObject& crop)
    {
        return crop.value(QStringLiteral("decidedBy")).toString();
    }
};

} // namespace

TEST_F(VxroiCropShapes, printsALineForEachOfSeveralShapes)
{
    const Outcome outcome = crop(QStringLiteral("--ratio 1:1,3:2 --size 1200x600"));
    EXPECT_EQ(outcome.exitCode, 0);
    const QList<QByteArray> lines = outcome.out.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.at(0).startsWith(path.toUtf8() + "\t1:1\t800x800+"));
    EXPECT_EQ(lines.at(1), path.toUtf8() + "\t3:2\t1200x800+0+0");
    EXPECT_TRUE(lines.at(2).startsWith(path.toUtf8() + "\t1200x600\t1200x600+0+"));
}

TEST_F(VxroiCropShapes, givesEachShapeTheWindowItHasAlone)
{
    const QJsonObject together = recordFrom(crop(QStringLiteral("--ratio 1:1,9:16,3:1 --json")));
    int index = 0;
    for (const char* const ratio : { "1:1", "9:16", "3:1" }) {
        const QJsonObject alone
            = recordFrom(crop(QStringLiteral("--json --ratio ") + QLatin1String(ratio)));
        EXPECT_EQ(cropOf(together, index++), cropOf(alone, 0)) << ratio;
    }
}

TEST_F(VxroiCropShapes, writesExactlyTheSizeAskedFor)
{
    const QString output = folder.path(QStringLiteral("sized.png"));
    EXPECT_EQ(crop(QStringLiteral("--size 301x157 -o ") + output).exitCode, 0);
    EXPECT_EQ(QImage(output).size(), QSize(301, 157));
}

TEST_F(VxroiCropShapes, enlargesOnlyWhenAsked)
{
    const QString plain = folder.path(QStringLiteral("plain.png"));
    const QString large = folder.path(QStringLiteral("large.png"));
    EXPECT_EQ(crop(QStringLiteral("--size 1600x1600 -o ") + plain).exitCode, 0);
    EXPECT_EQ(QImage(plain).size(), QSize(800, 800));
    EXPECT_EQ(crop(QStringLiteral("--size 1600x1600 --upscale -o ") + large).exitCode, 0);
    EXPECT_EQ(QImage(large).size(), QSize(1600, 1600));
}

TEST_F(VxroiCropShapes, refusesToEnlargeBeyondThePixelLimit)
{
    const QString output = folder.path(QStringLiteral("huge.png"));
    const Outcome outcome = crop(QStringLiteral("--size 100000x100000 --upscale -o ") + output);
    EXPECT_EQ(outcome.exitCode, 65);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("--max-pixels 10000000000")));
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("its crop for 100000x100000")));
    EXPECT_FALSE(QFile::exists(output));
}

TEST_F(VxroiCropShapes, namesOutputsByTheirTemplateAndMakesTheirFolders)
{
    const QString pattern = folder.path(QStringLiteral("crops/{stem}-{ratio}.{ext}"));
    EXPECT_EQ(crop(QStringLiteral("--ratio 1:1,16:9 -o ") + pattern).exitCode, 0);
    EXPECT_EQ(QImage(folder.path(QStringLiteral("crops/picture-1x1.png"))).size(), QSize(800, 800));
    EXPECT_EQ(
        QImage(folder.path(QStringLiteral("crops/picture-16x9.png"))).size(), QSize(1200, 675));
}

TEST_F(VxroiCropShapes, refusesOneNameForTwoOutputs)
{
    const QString output = folder.path(QStringLiteral("same.png"));
    const Outcome outcome = crop(QStringLiteral("--ratio 1:1,16:9 -o ") + output);
    EXPECT_EQ(outcome.exitCode, 64);
    EXPECT_TRUE(isOneLineNaming(outcome.err, output));
    EXPECT_FALSE(QFile::exists(output));
}

TEST_F(VxroiCropShapes, overwritesNothingUnlessAsked)
{
    const QString output = folder.save(QByteArray("mine"), QStringLiteral("taken.png"));
    const QString options = QStringLiteral("--ratio 1:1 --json -o ") + output;
    const Outcome refused = crop(options);
    EXPECT_EQ(refused.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(refused.err, output));
    const Outcome skipped = crop(options + QStringLiteral(" --if-exists skip"));
    EXPECT_EQ(skipped.exitCode, 0);
    EXPECT_TRUE(skipped.out.contains("\"status\":\"skipped\""));
    EXPECT_EQ(QFileInfo(output).size(), 4) << "the file that was there";
    const Outcome overwritten = crop(options + QStringLiteral(" --if-exists overwrite"));
    EXPECT_EQ(overwritten.exitCode, 0);
    EXPECT_TRUE(overwritten.out.contains("\"status\":\"written\""));
    EXPECT_EQ(QImage(output).size(), QSize(800, 800));
}

TEST_F(VxroiCropShapes, aDryRunWritesNothingAndSaysWhatItWould)
{
    const QString output = folder.path(QStringLiteral("dry/{stem}.png"));
    const Outcome outcome = crop(QStringLiteral("--ratio 1:1 --dry-run --json -o ") + output);
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(outcome.out.contains("\"status\":\"planned\""));
    EXPECT_TRUE(outcome.out.contains("dry/picture.png"));
    EXPECT_FALSE(QDir(folder.path(QStringLiteral("dry"))).exists());
    EXPECT_EQ(crop(QStringLiteral("--ratio 1:1 --dry-run -o x.xyz")).exitCode, 73)
        << "what could not be written is not promised";
}

TEST_F(VxroiCropShapes, printsARecordOrWindowsAndNotBoth)
{
    const Outcome outcome = crop(QStringLiteral("--ratio 1:1 --json --emit geometry"));
    EXPECT_EQ(outcome.exitCode, 64);
    EXPECT_TRUE(outcome.out.isEmpty());
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("--json")))
        << outcome.err.toStdString();
}

TEST_F(VxroiCropShapes, emitsTheObjectPositionThatShowsTheWindow)
{
    EXPECT_EQ(crop(QStringLiteral("--ratio 1:1 --focus 0,0.5 --emit css")).out,
        "object-position: 0.00% 50.00%\n");
    EXPECT_EQ(crop(QStringLiteral("--ratio 1:1 --focus 1,0.5 --emit css")).out,
        "object-position: 100.00% 50.00%\n");
    EXPECT_EQ(
        crop(QStringLiteral("--ratio 3:2 --emit css")).out, "object-position: 50.00% 50.00%\n");
}

TEST_F(VxroiCropShapes, theFocusWinsOverAreasAndAreasOverSalience)
{
    const auto decided = [this](const QString& options) {
        return cropOf(recordFrom(crop(QStringLiteral("--ratio 1:1 --json ") + options)), 0);
    };
    const QJsonObject kept = decided(QStringLiteral("--keep 1100,300,100,100"));
    EXPECT_EQ(decider(kept), QStringLiteral("keep"));
    EXPECT_TRUE(rectOf(kept, "oriented").contains(QRect(1100, 300, 100, 100)));
    const QJsonObject focused = decided(QStringLiteral("--keep 1100,300,100,100 --focus 0.4,0.5"));
    EXPECT_EQ(decider(focused), QStringLiteral("focus"));
    EXPECT_EQ(rectOf(focused, "oriented"), QRect(80, 0, 800, 800));
    const QJsonObject free = decided(QString());
    EXPECT_EQ(decider(free), QStringLiteral("salience"));
    EXPECT_GE(free.value(QStringLiteral("salience")).toDouble(),
        free.value(QStringLiteral("centreSalience")).toDouble());
}

TEST_F(VxroiCropShapes, areasToAvoidAreLeftOutUnlessTheyAreToBeKept)
{
    const auto decided = [this](const QString& options) {
        return cropOf(recordFrom(crop(QStringLiteral("--ratio 1:1 --json ") + options)), 0);
    };
    const QRect area(390, 0, 5, 800);
    const QJsonObject avoided = decided(QStringLiteral("--avoid 390,0,5,800"));
    EXPECT_EQ(decider(avoided), QStringLiteral("avoid"));
    EXPECT_FALSE(rectOf(avoided, "oriented").intersects(area)) << "only from column 395 to 400";
    const QJsonObject both = decided(QStringLiteral("--avoid 390,0,5,800 --keep 390,0,5,800"));
    EXPECT_EQ(decider(both), QStringLiteral("keep"));
    EXPECT_TRUE(rectOf(both, "oriented").contains(area));
}

TEST_F(VxroiCropShapes, takesTheMapFromAFile)
{
    QImage mask(120, 80, QImage::Format_ARGB32);
    mask.fill(Qt::transparent);
    QPainter(&mask).fillRect(0, 0, 10, 80, Qt::black);
    const QString maskPath = folder.save(mask, QStringLiteral("mask.png"));
    const auto recordWith = [this](const QString& map) {
        return recordFrom(crop(QStringLiteral("--ratio 1:1 --json --map ") + map));
    };
    const QJsonObject record = recordWith(maskPath);
    EXPECT_EQ(rectOf(cropOf(record, 0), "oriented"), QRect(0, 0, 800, 800));
    EXPECT_EQ(
        record.value(QStringLiteral("settings")).toString(), QStringLiteral("map=") + maskPath);
    EXPECT_EQ(recordWith(folder.path(QStringLiteral("{stem}.{ext}")))
                  .value(QStringLiteral("settings"))
                  .toString(),
        QStringLiteral("map=") + path);
}

TEST_F(VxroiCropShapes, refusesMapsThatAreNone)
{
    const QString broken = folder.save(QByteArray("no picture"), QStringLiteral("broken.png"));
    for (const auto& [map, exitCode] :
        { std::pair(broken, 65), std::pair(folder.path(QStringLiteral("none.png")), 66),
            std::pair(QStringLiteral("{ratio}.png"), 64) }) {
        const Outcome outcome = crop(QStringLiteral("--ratio 1:1 --map ") + map);
        EXPECT_EQ(outcome.exitCode, exitCode) << outcome.err.toStdString();
        EXPECT_TRUE(isOneLineNaming(outcome.err, map)) << outcome.err.toStdString();
    }
}

TEST_F(VxroiCropShapes, refusesAnEmptyNameOfAMap)
{
    const Outcome outcome = runVxroi({ QStringLiteral("crop"), path, QStringLiteral("--ratio"),
        QStringLiteral("1:1"), QStringLiteral("--map"), QString() });
    EXPECT_EQ(outcome.exitCode, 64);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("--map"))) << outcome.err.toStdString();
}

TEST_F(VxroiCropShapes, warnsOfADamagedMap)
{
    const QString cut = folder.save(
        samples::truncated(samples::encoded(picture, "jpg"), 70), QStringLiteral("cut.jpg"));
    const Outcome outcome
        = crop(QStringLiteral("--ratio 1:1 --on-broken warn --json --map ") + cut);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains("its map")) << outcome.err.toStdString();
    EXPECT_FALSE(recordFrom(outcome).value(QStringLiteral("warnings")).toArray().isEmpty());
}

TEST_F(VxroiCropShapes, refusesToOverwriteTheMap)
{
    const QString mask = folder.save(picture, QStringLiteral("mask.png"));
    const Outcome outcome
        = crop(QStringLiteral("--ratio 1:1 --if-exists overwrite --map %1 -o %1").arg(mask));
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(outcome.err, mask)) << outcome.err.toStdString();
    EXPECT_EQ(QImage(mask).size(), picture.size());
}

// The mask covers the right quarter of the picture: the focus is its centre, 7/8 across and half-way down.
TEST_F(VxroiCropShapes, tellsSharesOfThePicture)
{
    QImage mask(1200, 800, QImage::Format_RGB32);
    mask.fill(Qt::black);
    QPainter(&mask).fillRect(900, 0, 300, 800, Qt::white);
    const QString options
        = QStringLiteral("--ratio 1:1 --map ") + folder.save(mask, QStringLiteral("mask.png"));
    EXPECT_EQ(crop(options + QStringLiteral(" --emit focus")).out, "0.8750,0.5000\n");
    const QJsonObject found = cropOf(recordFrom(crop(options + QStringLiteral(" --json"))), 0);
    const auto shareOf = [&found](const char* name, const char* side) {
        return found.value(QLatin1String(name)).toObject().value(QLatin1String(side)).toDouble();
    };
    EXPECT_EQ(shareOf("focus", "x"), 0.875);
    EXPECT_EQ(shareOf("focus", "y"), 0.5);
    EXPECT_EQ(shareOf("relative", "x"), 0.333333);
    EXPECT_EQ(shareOf("relative", "y"), 0);
    EXPECT_EQ(shareOf("relative", "width"), 0.666667);
    EXPECT_EQ(shareOf("relative", "height"), 1);
}

TEST_F(VxroiCropShapes, refusesAreasAndPointsThatAreNone)
{
    for (const char* const options : { "--keep 1,2,3", "--keep 0,0,0,5", "--keep a,b,c,d",
             "--keep 1200,0,5,5", "--avoid 1,2", "--avoid 1200,0,5,5", "--focus 2,0", "--focus 0.5",
             "--focus nan,0", "--weight sobel=x", "--tune bins9=1", "--preset none" }) {
        const Outcome outcome = crop(QStringLiteral("--ratio 1:1 ") + QString::fromUtf8(options));
        EXPECT_EQ(outcome.exitCode, 64) << options;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QString())) << outcome.err.toStdString();
    }
}

TEST_F(VxroiCropShapes, aFlatPictureGivesTheCentreAndSaysSo)
{
    QImage flat(1200, 800, QImage::Format_RGB32);
    flat.fill(qRgb(90, 120, 150));
    folder.save(flat, QStringLiteral("picture.png"));
    const QJsonObject record = recordFrom(crop(QStringLiteral("--ratio 1:1,3:2 --json")));
    EXPECT_EQ(decider(cropOf(record, 0)), QStringLiteral("centre"));
    EXPECT_EQ(rectOf(cropOf(record, 0), "oriented"), QRect(200, 0, 800, 800));
    EXPECT_EQ(decider(cropOf(record, 1)), QStringLiteral("whole"));
}

TEST_F(VxroiCropShapes, aMirroredPictureGivesTheMirroredCrop)
{
    const QRect window
        = rectOf(cropOf(recordFrom(crop(QStringLiteral("--ratio 1:1 --json"))), 0), "oriented");
    folder.save(picture.mirrored(true, false), QStringLiteral("picture.png"));
    const QRect mirrored
        = rectOf(cropOf(recordFrom(crop(QStringLiteral("--ratio 1:1 --json"))), 0), "oriented");
    const double workingPixel = std::ceil(1200.0 / 640); // in whole pixels of the picture
    EXPECT_LE(std::abs(mirrored.left() - (1200 - window.left() - 800)), workingPixel);
    EXPECT_NE(window.left(), 200) << "a crop in the centre would prove nothing";
}

TEST_F(VxroiCropShapes, reportsBothFramesOfATurnedPicture)
{
    const QString turned
        = folder.save(samples::jpegWithOrientation(picture, 6), QStringLiteral("turned.jpg"));
    const Outcome outcome = runVxroi(
        { QStringLiteral("crop"), turned, QStringLiteral("--ratio"), QStringLiteral("1:1"),
            QStringLiteral("--focus"), QStringLiteral("0.5,0"), QStringLiteral("--json") });
    const QJsonObject record = recordFrom(outcome);
    EXPECT_EQ(rectOf(cropOf(record, 0), "oriented"), QRect(0, 0, 800, 800));
    EXPECT_EQ(rectOf(cropOf(record, 0), "source"), QRect(0, 0, 800, 800))
        << "the top as it is seen is the left as it is stored";
    const QJsonObject sizes = record.value(QStringLiteral("picture")).toObject();
    EXPECT_EQ(sizes.value(QStringLiteral("orientation")).toInt(), 6);
    EXPECT_EQ(rectOf(sizes, "oriented").size(), QSize(800, 1200));
    EXPECT_EQ(rectOf(sizes, "source").size(), QSize(1200, 800));
}

TEST_F(VxroiCropShapes, writesTurnedPicturesUprightAndKeepsTheirProfile)
{
    QImage tagged = picture;
    tagged.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    const QString turned
        = folder.save(samples::jpegWithOrientation(tagged, 6), QStringLiteral("turned.jpg"));
    for (const char* const options : { "--ratio 1:2", "--size 100x200" }) {
        for (const char* const name : { "upright.jpg", "upright.png" }) {
            const QString output = folder.path(QString::fromUtf8(name));
            const Outcome outcome = runVxroi(QStringList { QStringLiteral("crop"), turned }
                + words(QString::fromUtf8(options) + QStringLiteral(" --if-exists overwrite -o ")
                    + output));
            EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
            QImageReader reader(output);
            EXPECT_EQ(reader.transformation(), QImageIOHandler::TransformationNone) << name;
            const QImage written = reader.read();
            EXPECT_EQ(written.width() * 2, written.height());
            EXPECT_EQ(written.colorSpace(), QColorSpace(QColorSpace::AdobeRgb)) << name << options;
        }
    }
}

TEST_F(VxroiCropShapes, goesOnAfterAPictureThatFails)
{
    const QString broken = folder.save(QByteArray("no picture"), QStringLiteral("broken.jpg"));
    const Outcome outcome = runVxroi({ QStringLiteral("crop"), broken, path,
        QStringLiteral("--ratio"), QStringLiteral("1:1"), QStringLiteral("--json") });
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(isOneLineNaming(outcome.err, broken));
    const QList<QByteArray> lines = outcome.out.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines.at(0).contains("\"status\":\"failed\""));
    EXPECT_TRUE(lines.at(1).contains("\"status\":\"ok\""));
}

TEST_F(VxroiCropShapes, weightsAndTuningsChangeTheDecision)
{
    const auto salience = [this](const QString& options) {
        const QJsonObject record
            = recordFrom(crop(QStringLiteral("--ratio 1:1 --json ") + options));
        return cropOf(record, 0).value(QStringLiteral("salience")).toDouble();
    };
    const double photo = salience(QString());
    EXPECT_NE(photo, salience(QStringLiteral("--preset library")));
    EXPECT_NE(photo, salience(QStringLiteral("--weight achanta=100 --weight gauss=0")));
    const QString histogram = QStringLiteral("--weight histogram=100 ");
    EXPECT_NE(salience(histogram), salience(histogram + QStringLiteral("--tune bins1=4")));
}
