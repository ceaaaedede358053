#include "BatchFolder.h"

#include "support/Memory.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>
#include <QTransform>

namespace {

// The sample pictures of OpenCV's documentation.
QString sampleOf(const char* name)
{
    return QStringLiteral("/usr/share/doc/opencv-doc/examples/data/") + QLatin1String(name);
}

class FacesProgram : public BatchFolder {
protected:
    const QString facesProgram = QStringLiteral(VXROI_FACES_PROGRAM);

    Outcome faces(const QString& arguments) const
    {
        return shell(QStringLiteral("'%1' %2").arg(facesProgram, arguments));
    }

    static QVector<QRect> boxesIn(const QJsonObject& answer)
    {
        QVector<QRect> boxes;
        const QJsonArray faces = answer.value(QStringLiteral("faces")).toArray();
        for (const QJsonValue& face : faces)
            boxes.append(QRect(face[QStringLiteral("x")].toInt(), face[QStringLiteral("y")].toInt(),
                face[QStringLiteral("width")].toInt(), face[QStringLiteral("height")].toInt()));
        return boxes;
    }
};

// Faces in photographs that have been looked at.
class FacesProgramInPhotographs : public FacesProgram {
protected:
    void SetUp() override
    {
        if (!QFileInfo::exists(sampleOf("messi5.jpg")))
            GTEST_SKIP() << "the package opencv-doc is not installed, which has the photographs";
        FacesProgram::SetUp();
    }
};

} // namespace

TEST_F(FacesProgram, answersEachPictureWithALine)
{
    const Outcome outcome = faces(QStringLiteral("in/p00.png in/p01.png"));
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out,
        "{\"faces\":[],\"path\":\"in/p00.png\"}\n{\"faces\":[],\"path\":\"in/p01.png\"}\n");
    EXPECT_TRUE(outcome.err.isEmpty());
}

TEST_F(FacesProgram, answersTheLinesOfAListAndKeepsWhatTheySay)
{
    folder.save(QByteArray(R"(in/p00.png
{"path": "in/p01.png", "ratios": ["2:1"], "faces": 3, "error": "earlier"}

{"path": "in/p05-broken.png"}
{"path": 3}
{
in/none.png
)"),
        QStringLiteral("list"));
    const Outcome outcome = faces(QStringLiteral("--from list"));
    EXPECT_EQ(outcome.exitCode, 1);
    const auto answers = records(outcome.out);
    ASSERT_EQ(answers.size(), 6);
    EXPECT_EQ(pathsOf(outcome.out),
        (QStringList { QStringLiteral("in/p00.png"), QStringLiteral("in/p01.png"),
            QStringLiteral("in/p05-broken.png"), QStringLiteral("(line 5)"),
            QStringLiteral("(line 6)"), QStringLiteral("in/none.png") }));
    for (int i = 0; i < answers.size(); ++i) {
        EXPECT_EQ(answers.at(i).contains(QStringLiteral("faces")), i < 2) << i;
        EXPECT_EQ(answers.at(i).contains(QStringLiteral("error")), i >= 2) << i;
    }
    EXPECT_EQ(answers.at(1).value(QStringLiteral("ratios")).toArray().size(), 1);
    EXPECT_TRUE(outcome.err.startsWith("vxroi-faces: list, line 4: in/p05-broken.png: "))
        << outcome.err.toStdString();
    EXPECT_EQ(outcome.err.count('\n'), 4);
    EXPECT_TRUE(faces(QStringLiteral("--from list -q")).err.isEmpty());
}

TEST_F(FacesProgram, feedsABatch)
{
    const Outcome outcome = shell(QStringLiteral("find in -name 'p0[0-3].png' -print0 | sort -z | "
                                                 "'%1' -0 --from - | \"$VXROI\" batch -q --from - "
                                                 "--ratio 1:1")
                                      .arg(facesProgram));
    const auto answers = records(outcome.out);
    ASSERT_EQ(answers.size(), 4);
    for (const QJsonObject& record : answers)
        EXPECT_TRUE(record.contains(QStringLiteral("faces")));
}

TEST_F(FacesProgram, isTheDetectorOfVxroi)
{
    const Outcome outcome = shell(QStringLiteral("PATH=\"$(dirname '%1'):$PATH\" \"$VXROI\" crop "
                                                 "in/p00.png --ratio 1:1 --json --faces")
                                      .arg(facesProgram));
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(outcome.out.contains("\"faces\":[]")) << outcome.out.toStdString();
}

TEST_F(FacesProgram, endsWithTheCodeOfTheOnlyPicture)
{
    const Outcome outcome = faces(QStringLiteral("in/none.png"));
    EXPECT_EQ(outcome.exitCode, 66);
    EXPECT_EQ(outcome.out, "{\"error\":\"no such file\",\"path\":\"in/none.png\"}\n");
    EXPECT_EQ(outcome.err.toStdString(),
        "vxroi-faces: in/none.png: no such file; check the name and the folder\n");
    EXPECT_EQ(faces(QStringLiteral("in/p05-broken.png")).exitCode, 65);
    EXPECT_EQ(faces(QStringLiteral("in/p05-broken.png in/p00.png")).exitCode, 1);
}

TEST_F(FacesProgram, refusesAWrongCommandLine)
{
    struct Case {
        const char* arguments;
        const char* complaint;
    };
    for (const Case& wrong : {
             Case { "", "input: must be pictures or a list; name pictures, or add --from FILE" },
             Case { "--from x y",
                 "input: must be pictures or a list; name pictures, or add --from FILE" },
             Case { "--size 79 x", "--size: 79 is not a whole number from 80 to 8000" },
             Case { "--threshold high x", "--threshold: high is not a number from -1 to 10" },
             Case { "--theshold 1 x", "--theshold: no such option; did you mean --threshold?" },
             Case { "-0 x", "--null: needs --from" },
             Case { "--from ''", "--from: names no file" },
         }) {
        const Outcome outcome = faces(QLatin1String(wrong.arguments));
        EXPECT_EQ(outcome.exitCode, 64) << wrong.arguments;
        EXPECT_TRUE(outcome.err.startsWith(QByteArray("vxroi-faces: ") + wrong.complaint))
            << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.endsWith("ee vxroi-faces --help\n")) << outcome.err.toStdString();
        EXPECT_EQ(outcome.err.count('\n'), 1);
    }
    EXPECT_EQ(faces(QStringLiteral("--from none")).exitCode, 66);
}

TEST_F(FacesProgram, helpNamesItsOptionsAndExitCodes)
{
    const QByteArray help = faces(QStringLiteral("--help")).out;
    for (const char* const part : { "--size", "1280", "--threshold", "0.1", "--from", "--null",
             "--max-pixels", "--max-seconds", "64", "65", "66", "141" })
        EXPECT_TRUE(help.contains(part)) << part;
    EXPECT_TRUE(faces(QStringLiteral("--version")).out.startsWith("vxroi-faces "));
}

// Away from its folder, the program does not find the variant for the processor. A threshold this low finds what only
// resembles a face.
TEST_F(FacesProgram, answersTheSameInEachVariant)
{
    QDir(folder.path(QString())).mkpath(QStringLiteral("scenes"));
    ASSERT_EQ(shell(QStringLiteral("'%1' scenes && cp '%2' plain")
                        .arg(QStringLiteral(VXROI_SCENES_PROGRAM), facesProgram))
                  .exitCode,
        0);
    const QString work = QStringLiteral(" --threshold -1 scenes/*");
    const Outcome fast = faces(work);
    const Outcome plain = shell(QStringLiteral("./plain") + work);
    EXPECT_EQ(fast.out.toStdString(), plain.out.toStdString());
    EXPECT_GT(fast.out.count("score"), 0);
}

TEST_F(FacesProgram, becomesItsVariantForTheProcessor)
{
    QProcess process;
    process.start(facesProgram, { QStringLiteral("--from"), QStringLiteral("-") });
    ASSERT_TRUE(process.waitForStarted());
    process.write("none\n");
    while (!process.canReadLine() && process.waitForReadyRead(30'000)) { }
    const QString name
        = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(process.processId())))
              .fileName();
    process.closeWriteChannel();
    process.waitForFinished(-1);
#ifdef __x86_64__
    EXPECT_EQ(name == QStringLiteral("vxroi-faces-avx2"), __builtin_cpu_supports("avx2") != 0);
#else
    EXPECT_EQ(name, QStringLiteral("vxroi-faces"));
#endif
    EXPECT_TRUE(process.readAllStandardError().startsWith("vxroi-faces: ")) << "its name stays";
}

// By eye: the nose of the man at the left is at 92, 113, his eyes at 103 and his chin at 128.
TEST_F(FacesProgramInPhotographs, areFoundWhereTheyAre)
{
    const auto answer = records(faces(sampleOf("basketball1.png")).out);
    ASSERT_EQ(answer.size(), 1);
    const QVector<QRect> boxes = boxesIn(answer.first());
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes.first().contains(QRect(QPoint(86, 103), QPoint(98, 120))));
    EXPECT_TRUE(QRect(QPoint(65, 80), QPoint(120, 140)).contains(boxes.first()));
}

// By eye: the nose is at 244, 112.
TEST_F(FacesProgramInPhotographs, areGivenInPixelsOfThePictureAsSeen)
{
    const QImage photograph(sampleOf("messi5.jpg"));
    const QByteArray turned
        = samples::jpegWithOrientation(photograph.transformed(QTransform().rotate(-90)), 6);
    const QString path = folder.save(turned, QStringLiteral("turned.jpg"));
    for (const QString& picture : { sampleOf("messi5.jpg"), path }) {
        const QVector<QRect> boxes = boxesIn(records(faces(picture).out).value(0));
        ASSERT_EQ(boxes.size(), 1) << picture.toStdString();
        EXPECT_TRUE(boxes.first().contains(QPoint(244, 112)));
        EXPECT_TRUE(QRect(QPoint(220, 85), QPoint(275, 140)).contains(boxes.first()));
    }
}

TEST_F(FacesProgramInPhotographs, areFewerWithAHigherThresholdAndAtASmallerSize)
{
    const QString picture = sampleOf("messi5.jpg");
    EXPECT_TRUE(
        boxesIn(records(faces(picture + QStringLiteral(" --threshold 5")).out)[0]).isEmpty());
    EXPECT_TRUE(boxesIn(records(faces(picture + QStringLiteral(" --size 548")).out)[0]).isEmpty())
        << "the face is 32 pixels wide";
}

TEST_F(FacesProgramInPhotographs, areKeptWholeByVxroi)
{
    const auto cropWith = [&](const char* options) {
        const Outcome outcome = shell(
            QStringLiteral("PATH=\"$(dirname '%1'):$PATH\" \"$VXROI\" crop '%2' --ratio 1:1 "
                           "--json %3")
                .arg(facesProgram, sampleOf("basketball1.png"), QLatin1String(options)));
        const QJsonObject crop = records(outcome.out)
                                     .value(0)
                                     .value(QStringLiteral("crops"))
                                     .toArray()
                                     .at(0)
                                     .toObject();
        const QJsonObject oriented = crop.value(QStringLiteral("oriented")).toObject();
        return QRect(oriented[QStringLiteral("x")].toInt(), 0,
            oriented[QStringLiteral("width")].toInt(), 480);
    };
    EXPECT_FALSE(cropWith("").contains(QPoint(92, 113)));
    EXPECT_TRUE(cropWith("--faces").contains(QRect(QPoint(74, 94), QPoint(110, 130))));
}

TEST_F(FacesProgram, holdsNoMoreMemoryAfterManyLines)
{
    if (support::isSanitized)
        GTEST_SKIP() << "sanitizers keep what is freed";
    QProcess process;
    process.setWorkingDirectory(folder.path(QString()));
    process.start(facesProgram,
        { QStringLiteral("--from"), QStringLiteral("-"), QStringLiteral("--size"),
            QStringLiteral("160") });
    ASSERT_TRUE(process.waitForStarted());
    const auto pagesAfter = [&](int lines) {
        for (int i = 0; i < lines; ++i) {
            process.write(i % 2 == 0 ? "in/p00.png\n" : "{\n");
            while (!process.canReadLine() && process.waitForReadyRead(30'000)) { }
            EXPECT_FALSE(process.readLine().isEmpty());
        }
        QFile status(QStringLiteral("/proc/%1/statm").arg(process.processId()));
        EXPECT_TRUE(status.open(QIODevice::ReadOnly));
        return status.readAll().split(' ').value(1).toInt();
    };
    const int before = pagesAfter(100);
    const int after = pagesAfter(2000);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    EXPECT_LT(after, before + 1024) << "4 MB";
}
