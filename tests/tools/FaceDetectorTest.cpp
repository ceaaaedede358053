#include "host/detector/FaceDetector.h"

#include "SampleFiles.h"
#include "host/HostError.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int shortLimit = 4; // in seconds; the detector has half of it
constexpr int longLimit = 60;

// Detectors are scripts of the shell. Each notes its number when it starts.
class FaceDetector : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QString picture = QStringLiteral("a.jpg");

    std::shared_ptr<host::FaceDetector> detector(
        const QString& script, host::FaceDetector::OnProblem onProblem = warn) const
    {
        return host::FaceDetector::ofCommand(
            QStringLiteral("cd '%1'; echo $$ >> starts; %2").arg(folder.path(QString()), script),
            onProblem);
    }

    // One that says the same to each line.
    std::shared_ptr<host::FaceDetector> saying(const QString& answer) const
    {
        return detector(QStringLiteral("while read -r line; do echo '%1'; done").arg(answer));
    }

    static std::string problemOf(
        host::FaceDetector& asked, const QString& path, int mostSeconds = longLimit)
    {
        return asked.detect(path, mostSeconds).problem.toStdString();
    }

    std::string problemOf(host::FaceDetector& asked) const { return problemOf(asked, picture); }

    std::string problemWith(const QString& script, int mostSeconds = longLimit) const
    {
        return problemOf(*detector(script), picture, mostSeconds);
    }

    QStringList linesOf(const char* name) const
    {
        QFile file(folder.path(QLatin1String(name)));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    static constexpr auto warn = host::FaceDetector::OnProblem::Warn;
    static constexpr auto fail = host::FaceDetector::OnProblem::Fail;
};

std::string unknownBecause(const char* reason)
{
    return std::string("its faces are not known: ") + reason;
}

// A process that has ended, but that nobody has waited for, does not run.
bool isRunning(const QString& process)
{
    QFile state(QStringLiteral("/proc/%1/stat").arg(process));
    return state.open(QIODevice::ReadOnly) && !state.readAll().contains(") Z");
}

} // namespace

TEST_F(FaceDetector, answersWithBoxesAndScores)
{
    const auto detection
        = saying(QStringLiteral(R"({"path": "a.jpg", "faces": [{"x": 1.5, "y": -2, "width": 3, )"
                                R"("height": 4.25, "score": 0.5, "eyes": 2}, {"x": 9, "y": 8, )"
                                R"("width": 7, "height": 6}], "by": "hand"})"))
              ->detect(picture, longLimit);
    EXPECT_TRUE(detection.problem.isEmpty()) << detection.problem.toStdString();
    ASSERT_EQ(detection.faces.size(), 2);
    EXPECT_EQ(detection.faces.at(0).box, QRect(1, -2, 4, 5)) << "all pixels that it touches";
    EXPECT_EQ(detection.faces.at(0).score, 0.5);
    EXPECT_EQ(detection.faces.at(1).box, QRect(9, 8, 7, 6));
    EXPECT_FALSE(detection.faces.at(1).score);
}

TEST_F(FaceDetector, isAskedWithAnObjectOfThePath)
{
    const auto noting
        = detector(QStringLiteral(R"(read -r line; printf '%s\n' "$line" >> asked; printf '%s\n' )"
                                  R"('{"path": "a\nb", "faces": []}')"));
    EXPECT_EQ(problemOf(*noting, QStringLiteral("a\nb")), "");
    EXPECT_EQ(linesOf("asked"), QStringList { QStringLiteral(R"({"path":"a\nb"})") });
}

TEST_F(FaceDetector, isStartedOnceForManyPictures)
{
    const auto one = saying(QStringLiteral(R"({"path": "a.jpg", "faces": []})"));
    for (int i = 0; i < 50; ++i)
        EXPECT_TRUE(one->detect(picture, longLimit).problem.isEmpty());
    EXPECT_EQ(linesOf("starts").size(), 1);
}

TEST_F(FaceDetector, isStartedOnceForEachThreadAtMost)
{
    const auto shared = saying(QStringLiteral(R"({"path": "a.jpg", "faces": []})"));
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int j = 0; j < 20; ++j)
                EXPECT_TRUE(shared->detect(picture, longLimit).problem.isEmpty());
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_LE(linesOf("starts").size(), 4);
}

TEST_F(FaceDetector, maySayWhyItDoesNotKnow)
{
    const auto blind = saying(QStringLiteral(R"({"path": "a.jpg", "error": "too dark"})"));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(problemOf(*blind), unknownBecause("too dark"));
    EXPECT_EQ(linesOf("starts").size(), 1) << "that is an answer";
}

TEST_F(FaceDetector, mayEndInAnyWay)
{
    EXPECT_EQ(problemWith(QStringLiteral("exit 3")),
        unknownBecause("the detector ended with exit code 3"));
    EXPECT_EQ(problemWith(QStringLiteral("exit 0")),
        unknownBecause("the detector ended with exit code 0"));
    EXPECT_EQ(problemWith(QStringLiteral("kill -SEGV $$")),
        unknownBecause("the detector was ended by signal 11"));
    EXPECT_EQ(problemWith(QStringLiteral("exec 0<&- >&-; sleep 100")),
        unknownBecause("the detector has closed its output"));
    EXPECT_EQ(problemWith(QStringLiteral("exec /nonexistent 2>/dev/null")),
        unknownBecause("the detector ended with exit code 127"));
}

TEST_F(FaceDetector, hasHalfOfTheTimeOfAPicture)
{
    const QString slow = QStringLiteral(
        "read -r line; sleep 3; echo '{\"path\": \"a.jpg\", \"faces\": []}'; read -r line");
    EXPECT_EQ(problemWith(slow, shortLimit), unknownBecause("the detector gave no answer in time"));
    EXPECT_EQ(problemWith(slow, longLimit), "");
}

TEST_F(FaceDetector, isNotWaitedForWhenItReadsNothing)
{
    const QString longerThanAPipe(1 << 17, QLatin1Char('a'));
    EXPECT_EQ(problemOf(*detector(QStringLiteral("sleep 100")), longerThanAPipe, shortLimit),
        unknownBecause("the detector gave no answer in time"));
}

TEST_F(FaceDetector, mayStopReading)
{
    const auto deaf = detector(
        QStringLiteral("read -r line; exec 0<&-; echo '{\"path\": \"a.jpg\", \"faces\": []}'; "
                       "sleep 100"));
    EXPECT_EQ(problemOf(*deaf), "");
    EXPECT_EQ(problemOf(*deaf, picture, shortLimit),
        unknownBecause("the detector gave no answer in time"));
}

TEST_F(FaceDetector, maySayAnything)
{
    const auto problemSaying
        = [this](const char* answer) { return problemOf(*saying(QLatin1String(answer))); };
    EXPECT_TRUE(problemSaying("nonsense").find("a wrong answer: not JSON") != std::string::npos);
    EXPECT_EQ(
        problemSaying("[]"), unknownBecause("the detector gave a wrong answer: not a JSON object"));
    EXPECT_EQ(problemSaying(R"({"path": "a.jpg"})"),
        unknownBecause("the detector gave a wrong answer: neither \"faces\" nor \"error\""));
    EXPECT_EQ(problemSaying(R"({"path": "b.jpg", "faces": []})"),
        unknownBecause("the detector answered for another picture"));
    EXPECT_EQ(problemSaying(R"({"faces": []})"),
        unknownBecause("the detector answered for another picture"));
    EXPECT_EQ(problemSaying(R"({"path": "a.jpg", "error": 7})"),
        unknownBecause("the detector gave a wrong answer: \"error\" is not a text"));
    for (const char* const faces :
        { "3", "{}", "[3]", "[{}]", R"([{"x": 1, "y": 1, "width": 0, "height": 4}])",
            R"([{"x": 1, "y": 1, "width": 4, "height": -4}])", R"([{"x": 1, "y": 1, "width": 4}])",
            R"([{"x": 1e10, "y": 1, "width": 4, "height": 4}])",
            R"([{"x": "1", "y": 1, "width": 4, "height": 4}])",
            R"([{"x": 1, "y": 1, "width": 4, "height": 4, "score": "high"}])" })
        EXPECT_EQ(
            problemSaying((std::string(R"({"path": "a.jpg", "faces": )") + faces + "}").c_str()),
            unknownBecause("the detector gave a wrong answer: \"faces\" is not an array of at most "
                           "1000 objects with x, y, width and height"))
            << faces;
}

TEST_F(FaceDetector, findsAtMostAThousandFaces)
{
    const auto problemFor = [this](int count) {
        QStringList faces;
        for (int i = 0; i < count; ++i)
            faces.append(QStringLiteral(R"({"x":1,"y":1,"width":2,"height":2})"));
        return problemOf(*saying(QStringLiteral(R"({"path": "a.jpg", "faces": [%1]})")
                                     .arg(faces.join(QLatin1Char(',')))));
    };
    EXPECT_EQ(problemFor(1000), "");
    EXPECT_NE(problemFor(1001), "");
}

TEST_F(FaceDetector, mayNotGoOnForEver)
{
    EXPECT_EQ(problemWith(QStringLiteral("yes | tr -d '\\n'")),
        unknownBecause("the detector answered with more than 1048576 bytes"));
    EXPECT_EQ(
        problemWith(QStringLiteral("yes")), unknownBecause("the detector answered out of turn"));
}

TEST_F(FaceDetector, isStartedAgainAfterAFailure)
{
    const auto recovering
        = detector(QStringLiteral("[ $(wc -l < starts) -gt 1 ] || exit 1; while read -r line; do "
                                  "echo '{\"path\": \"a.jpg\", \"faces\": []}'; done"));
    EXPECT_FALSE(recovering->detect(picture, longLimit).problem.isEmpty());
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(recovering->detect(picture, longLimit).problem.isEmpty());
    EXPECT_EQ(linesOf("starts").size(), 2);
}

TEST_F(FaceDetector, isNotAskedAfterThreeFailuresInARow)
{
    const auto failing = detector(QStringLiteral("exit 1"));
    for (int i = 0; i < 3; ++i)
        failing->detect(picture, longLimit);
    EXPECT_EQ(problemOf(*failing),
        unknownBecause("the detector has failed 3 times in a row, so it is not asked"));
    EXPECT_EQ(linesOf("starts").size(), 3);

    const auto everySecond = detector(
        QStringLiteral("[ $(($(wc -l < starts) % 2)) = 0 ] || exit 1; while read -r line; do "
                       "echo '{\"path\": \"a.jpg\", \"faces\": []}'; exit; done"));
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(problemOf(*everySecond).find("in a row"), std::string::npos) << i;
}

TEST_F(FaceDetector, mayBeRequired)
{
    try {
        detector(QStringLiteral("exit 1"), fail)->detect(picture, longLimit);
        FAIL();
    } catch (const host::HostError& error) {
        EXPECT_EQ(error.code(), host::ExitCode::Unavailable);
        EXPECT_EQ(error.subject(), picture);
        EXPECT_EQ(
            error.reason().toStdString(), unknownBecause("the detector ended with exit code 1"));
        EXPECT_TRUE(error.isRetryable());
    }
}

TEST_F(FaceDetector, isNotAskedForStandardInput)
{
    const auto idle = detector(QStringLiteral("exit 1"));
    EXPECT_EQ(problemOf(*idle, QStringLiteral("-")),
        unknownBecause("the detector reads files, not standard input"));
    EXPECT_TRUE(linesOf("starts").isEmpty());
}

TEST_F(FaceDetector, endsWithItsObjectAndSoDoWhatItHasStarted)
{
    {
        const auto parent = detector(
            QStringLiteral("sleep 100 & echo $! > child; while read -r line; do "
                           "echo '{\"path\": \"a.jpg\", \"faces\": []}'; done; sleep 100"));
        EXPECT_TRUE(parent->detect(picture, longLimit).problem.isEmpty());
    }
    for (const char* const name : { "starts", "child" }) {
        const QStringList numbers = linesOf(name);
        ASSERT_EQ(numbers.size(), 1) << name;
        // The shell's child has been killed with its group, but ends when the system comes to it.
        const QDeadlineTimer deadline(std::chrono::seconds(10));
        while (isRunning(numbers.first()) && !deadline.hasExpired())
            QThread::msleep(10);
        EXPECT_FALSE(isRunning(numbers.first())) << name;
    }
}

TEST_F(FaceDetector, isNotReachedByKeysThatInterruptThisProgram)
{
    const auto own
        = detector(QStringLiteral("cut -d ' ' -f 5 /proc/$$/stat > group; while read -r line; do "
                                  "echo '{\"path\": \"a.jpg\", \"faces\": []}'; done"));
    own->detect(picture, longLimit);
    EXPECT_EQ(linesOf("group"), linesOf("starts"));
}

TEST_F(FaceDetector, isFoundInPath)
{
    int argc = 1;
    std::string name = "host_tests";
    std::array<char*, 2> argv { name.data(), nullptr };
    const QCoreApplication application(argc, argv.data());
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.path(QString()).toUtf8() + ':' + path);
    EXPECT_THROW(host::FaceDetector::installed(warn), host::HostError);
    const QString script
        = folder.save(QByteArray("#!/bin/sh\necho $* > \"$0.arguments\"\nwhile read -r line; do "
                                 "echo '{\"path\": \"a.jpg\", \"faces\": []}'; done\n"),
            QStringLiteral("vxroi-faces"));
    QFile(script).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_TRUE(host::FaceDetector::installed(warn)->detect(picture, longLimit).problem.isEmpty());
    EXPECT_EQ(linesOf("vxroi-faces.arguments"), QStringList { QStringLiteral("--from - --quiet") });
    qputenv("PATH", path);
}
