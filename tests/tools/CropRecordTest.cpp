#include "host/records/CropRecord.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

host::CropResult sampleCrop()
{
    host::CropResult crop;
    crop.shape = QStringLiteral("1:1");
    crop.chosen = { QRect(40, 0, 60, 60), QPointF(0.75, 0.5), VXCropReason::Avoid, 0.8125, 0.5625 };
    crop.stored = QRect(0, 40, 60, 60);
    crop.outputSize = QSize(30, 30);
    return crop;
}

host::CropRecord sampleRecord()
{
    host::CropRecord record;
    record.path = QStringLiteral("näme.gif");
    record.settings = QStringLiteral("gauss=20");
    record.format = QStringLiteral("gif");
    record.stored = QSize(60, 100);
    record.oriented = QSize(100, 60);
    record.orientation = 6;
    record.frames = 3;
    record.warnings = QStringList { QStringLiteral("one"), QStringLiteral("two") };
    record.crops.append(sampleCrop());
    return record;
}

QJsonObject jsonOf(const host::CropRecord& record)
{
    return QJsonDocument::fromJson(record.toJson()).object();
}

host::CropRecord readBack(const host::CropRecord& record)
{
    return host::CropRecord::fromJson(jsonOf(record));
}

// What is said of an object that is no record; nothing when it is one.
QString refusalOf(const QJsonObject& object)
{
    try {
        host::CropRecord::fromJson(object);
    } catch (const host::HostError& error) {
        return error.reason();
    }
    return {};
}

// The sample record with another value for one key of its crop.
QJsonObject withInCrop(const char* key, const QJsonValue& value)
{
    QJsonObject object = jsonOf(sampleRecord());
    QJsonObject crop = object.value(QLatin1String("crops")).toArray().first().toObject();
    crop.insert(QLatin1String(key), value);
    object.insert(QStringLiteral("crops"), QJsonArray { crop });
    return object;
}

} // namespace

TEST(CropRecord, listsFacesWhereTheyAreKnown)
{
    host::CropRecord record = sampleRecord();
    EXPECT_FALSE(jsonOf(record).contains(QStringLiteral("faces")));
    EXPECT_FALSE(readBack(record).faces);
    record.faces = QVector<host::Face>();
    EXPECT_EQ(jsonOf(record).value(QStringLiteral("faces")), QJsonArray());
    ASSERT_TRUE(readBack(record).faces);
    EXPECT_TRUE(readBack(record).faces->isEmpty());
    record.faces = QVector<host::Face> { { QRect(1, 2, 3, 4), 0.25 }, { QRect(-5, 6, 7, 8), {} } };
    const QJsonObject first { { QStringLiteral("x"), 1 }, { QStringLiteral("y"), 2 },
        { QStringLiteral("width"), 3 }, { QStringLiteral("height"), 4 },
        { QStringLiteral("score"), 0.25 } };
    EXPECT_EQ(jsonOf(record).value(QStringLiteral("faces")).toArray().at(0), first);
    const auto read = readBack(record).faces;
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), 2);
    EXPECT_EQ(read->at(0).box, QRect(1, 2, 3, 4));
    EXPECT_EQ(read->at(0).score, 0.25);
    EXPECT_EQ(read->at(1).box, QRect(-5, 6, 7, 8));
    EXPECT_FALSE(read->at(1).score);
    EXPECT_EQ(readBack(record).toJson(), record.toJson());
}

TEST(CropRecord, refusesFacesThatAreNone)
{
    for (const QJsonValue& faces : { QJsonValue(3), QJsonValue(QJsonObject()),
             QJsonValue(QJsonArray { 7 }), QJsonValue(QJsonValue::Null) }) {
        QJsonObject object = jsonOf(sampleRecord());
        object.insert(QStringLiteral("faces"), faces);
        EXPECT_TRUE(refusalOf(object).startsWith(QStringLiteral("\"faces\" is not an array")));
    }
}

TEST(CropRecord, isReadAsItWasWritten)
{
    host::CropRecord record = sampleRecord();
    EXPECT_EQ(readBack(record).toJson(), record.toJson());
    for (const host::OutputState state :
        { host::OutputState::Written, host::OutputState::Planned, host::OutputState::Skipped }) {
        record.crops.first().state = state;
        record.crops.first().outputPath = QStringLiteral("out.png");
        EXPECT_EQ(readBack(record).toJson(), record.toJson());
    }
    for (const VXCropReason reason :
        { VXCropReason::WholePicture, VXCropReason::Focus, VXCropReason::Keep, VXCropReason::Faces,
            VXCropReason::Salience, VXCropReason::Centre }) {
        record.crops.first().chosen.reason = reason;
        EXPECT_EQ(readBack(record).toJson(), record.toJson());
    }
}

TEST(CropRecord, isReadWithItsFailure)
{
    host::CropRecord record;
    record.path = QStringLiteral("none.png");
    record.settings = QStringLiteral("photo");
    record.failure = host::HostError(host::ExitCode::MissingInput, record.path,
        QStringLiteral("no such file"), QStringLiteral("check its name"));
    const host::CropRecord read = readBack(record);
    EXPECT_EQ(read.toJson(), record.toJson());
    EXPECT_STREQ(read.failure->what(), "none.png: no such file; check its name");
}

TEST(CropRecord, keepsTheVersionThatMadeIt)
{
    QJsonObject object = jsonOf(sampleRecord());
    EXPECT_EQ(host::CropRecord::fromJson(object).version, QStringLiteral(VXROI_VERSION));
    object.insert(QStringLiteral("version"), QStringLiteral("9.8.7"));
    EXPECT_EQ(host::CropRecord::fromJson(object).version, QStringLiteral("9.8.7"));
}

TEST(CropRecord, mayHaveKeysOfLaterVersions)
{
    QJsonObject object = withInCrop("mood", 3);
    object.insert(QStringLiteral("weather"), QStringLiteral("fine"));
    EXPECT_EQ(host::CropRecord::fromJson(object).toJson(), sampleRecord().toJson());
}

TEST(CropRecord, mayHaveNoWindowWhereTheCropWasSkipped)
{
    QJsonObject crop { { QStringLiteral("shape"), QStringLiteral("1:1") },
        { QStringLiteral("output"),
            QJsonObject { { QStringLiteral("status"), QStringLiteral("skipped") },
                { QStringLiteral("path"), QStringLiteral("a.jpg") } } } };
    QJsonObject object = jsonOf(sampleRecord());
    object.insert(QStringLiteral("crops"), QJsonArray { crop });
    const host::CropResult read = host::CropRecord::fromJson(object).crops.first();
    EXPECT_TRUE(read.chosen.window.isNull());
    EXPECT_EQ(read.state, host::OutputState::Skipped);
    EXPECT_EQ(read.outputPath, QStringLiteral("a.jpg"));

    crop.remove(QStringLiteral("output"));
    object.insert(QStringLiteral("crops"), QJsonArray { crop });
    EXPECT_EQ(refusalOf(object), QStringLiteral("\"decidedBy\" is not the name of a reason"));
}

TEST(CropRecord, isRefusedWhereItIsNone)
{
    const QJsonObject record = jsonOf(sampleRecord());
    EXPECT_EQ(refusalOf(record), QString());
    EXPECT_EQ(refusalOf({}), QStringLiteral("\"path\" is missing"));
    for (const char* const key : { "path", "status", "crops", "picture" }) {
        QJsonObject without = record;
        without.remove(QLatin1String(key));
        EXPECT_FALSE(refusalOf(without).isEmpty()) << key;
        for (const QJsonValue& value :
            { QJsonValue(7), QJsonValue(QString()), QJsonValue(QJsonArray { 1 }) }) {
            QJsonObject wrong = record;
            wrong.insert(QLatin1String(key), value);
            EXPECT_FALSE(refusalOf(wrong).isEmpty()) << key;
        }
    }
    QJsonObject nameless = record;
    nameless.insert(QStringLiteral("path"), QString(QChar(0)));
    EXPECT_EQ(
        refusalOf(nameless), QStringLiteral("\"path\" contains characters that no file name has"));
}

TEST(CropRecord, isRefusedWhereAnyOfItsCropsIsNone)
{
    const auto window = [](int x, int y, double width, int height) {
        return QJsonObject { { QStringLiteral("x"), x }, { QStringLiteral("y"), y },
            { QStringLiteral("width"), width }, { QStringLiteral("height"), height } };
    };
    EXPECT_EQ(refusalOf(withInCrop("oriented", window(40, 0, 60, 60))), QString());
    for (const QJsonObject& wrong : { window(41, 0, 60, 60), window(-1, 0, 60, 60),
             window(40, 1, 60, 60), window(40, 0, 0, 60), window(40, 0, 59.5, 60),
             window(2147483647, 0, 60, 60), window(40, 0, 1e12, 60), QJsonObject() })
        EXPECT_FALSE(refusalOf(withInCrop("oriented", wrong)).isEmpty());
    EXPECT_FALSE(refusalOf(withInCrop("salience", 1.01)).isEmpty());
    EXPECT_FALSE(refusalOf(withInCrop("centreSalience", QStringLiteral("0.5"))).isEmpty());
    EXPECT_FALSE(refusalOf(withInCrop("decidedBy", QStringLiteral("chance"))).isEmpty());
    EXPECT_FALSE(refusalOf(withInCrop("focus", 0.5)).isEmpty());
    EXPECT_FALSE(refusalOf(withInCrop("shape", QString())).isEmpty());
    EXPECT_FALSE(refusalOf(
        withInCrop("output", QJsonObject { { QStringLiteral("status"), QStringLiteral("lost") } }))
                     .isEmpty());
}
