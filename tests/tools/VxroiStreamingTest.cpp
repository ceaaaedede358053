#include "BatchFolder.h"

#include "support/Memory.h"

#include <QProcess>

namespace {

// A batch that receives its list line by line, as when a service keeps one running.
class VxroiStreaming : public BatchFolder {
protected:
    QProcess process;

    void start(const char* options = "--ratio 1:1")
    {
        process.setWorkingDirectory(folder.path(QString()));
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QStringLiteral(VXROI_PROGRAM),
            QStringLiteral("batch -q --from - %1")
                .arg(QLatin1String(options))
                .split(QLatin1Char(' ')));
        ASSERT_TRUE(process.waitForStarted());
    }

    QByteArray answer()
    {
        while (!process.canReadLine() && process.waitForReadyRead(30'000)) { }
        return process.readLine();
    }

    QByteArray answerTo(const QByteArray& line)
    {
        process.write(line + '\n');
        return answer();
    }

    int end()
    {
        process.closeWriteChannel();
        process.waitForFinished(-1);
        return process.exitCode();
    }

    int residentPages() const
    {
        QFile status(QStringLiteral("/proc/%1/statm").arg(process.processId()));
        EXPECT_TRUE(status.open(QIODevice::ReadOnly));
        return status.readAll().split(' ').value(1).toInt();
    }
};

} // namespace

TEST_F(VxroiStreaming, answersEachLineBeforeTheNext)
{
    start();
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(pathsOf(answerTo(nameOf(i).toUtf8())), QStringList { nameOf(i) });
    EXPECT_TRUE(answerTo("in/none.png").contains("no such file"));
    EXPECT_TRUE(answerTo("{").contains("not JSON"));
    EXPECT_TRUE(answerTo(R"({"path": "in/p00.png", "focus": [1e999, 0]})")
                    .contains("not JSON: number overflow parsing '1e999'"));
    process.write("in/p0"); // a line may come in parts
    process.waitForBytesWritten();
    EXPECT_FALSE(process.waitForReadyRead(200));
    EXPECT_EQ(pathsOf(answerTo("3.png")), QStringList { nameOf(3) });
    EXPECT_EQ(end(), 1);
}

TEST_F(VxroiStreaming, takesNoPictureFromTheListItself)
{
    start();
    const QByteArray map = R"({"path": "in/p00.png", "map": "/proc/self/fd/0"})";
    for (const QByteArray& line : { QByteArray("/dev/stdin"), QByteArray("/proc/self/fd/0"), map })
        process.write(line + '\n');
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(answerTo(nameOf(i).toUtf8()).contains("is the list itself")) << i;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(pathsOf(answer()), QStringList { nameOf(i) });
    EXPECT_EQ(end(), 1);
}

TEST_F(VxroiStreaming, answersInTheOrderOfTheLines)
{
    start("--ratio 1:1 -j 4");
    QStringList sent;
    for (int i = 0; i < 60; ++i) {
        sent.append(nameOf(i * 7 % 11));
        process.write(sent.last().toUtf8() + '\n');
    }
    QByteArray answers;
    for (int i = 0; i < 60; ++i)
        answers += answer();
    EXPECT_EQ(pathsOf(answers), sent);
    EXPECT_EQ(end(), 0);
}

// Lines with the same output are processed one after another, so that the last one wins.
TEST_F(VxroiStreaming, writesTheSameOutputAsOftenAsItIsAsked)
{
    start("--ratio 1:1 -j 4 -o out.png --if-exists overwrite");
    for (int i = 0; i < 8; ++i)
        process.write(nameOf(i).toUtf8() + '\n');
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(answer().contains("\"written\"")) << i;
    EXPECT_EQ(end(), 0);
    // The last one is 109 columns wide and 55 rows high.
    EXPECT_EQ(QImage(folder.path(QStringLiteral("out.png"))).size(), QSize(55, 55));
}

TEST_F(VxroiStreaming, refusesAnOutputThatAnEarlierLineHasWritten)
{
    start("--ratio 1:1 -j 4 -o out.png");
    process.write("in/p00.png\nin/p01.png\n");
    EXPECT_TRUE(answer().contains("\"written\""));
    EXPECT_TRUE(answer().contains("already exists"));
    EXPECT_EQ(end(), 1);
}

TEST_F(VxroiStreaming, takesAHundredShapesAPictureAndNoMore)
{
    start();
    const auto lineWith = [](int count) {
        QByteArray ratios = "\"1:1\"";
        for (int i = 2; i <= count; ++i)
            ratios += ",\"" + QByteArray::number(i) + ":7\"";
        return QByteArray(R"({"path": "in/p00.png", "ratios": [)") + ratios + "]}";
    };
    EXPECT_EQ(answerTo(lineWith(100)).count("\"shape\""), 100);
    EXPECT_TRUE(answerTo(lineWith(101)).contains("101 shapes are too many"));
    EXPECT_EQ(end(), 1);
}

TEST_F(VxroiStreaming, readsAListThatBeginsWithAByteOrderMark)
{
    start();
    EXPECT_TRUE(answerTo("\xef\xbb\xbfin/p00.png").contains("\"path\":\"in/p00.png\""));
    EXPECT_EQ(end(), 0);
}

TEST_F(VxroiStreaming, holdsNoMoreMemoryAfterAMillionLines)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer keeps what is freed";
    start("--ratio 1:1 -o out/{stem}-{ratio}.png --if-exists skip");
    const QList<QByteArray> hostile { R"({"path": "a", "keep": [{"a": [1, 2], "a": [3, 4]}]})", "{",
        "in/none.png", R"({"path": "in/none.png", "out": "/etc/x.png"})", QByteArray(300, '['),
        R"({"path": [[[[]]]]})", R"({"path": "in/none-%.png", "out": "out-%.png"})" };
    constexpr int lineCount = 1'000'000;
    constexpr int partSize = 500;
    int early = 0;
    int answered = 0;
    for (int sent = 0; sent < lineCount; sent += partSize) {
        QByteArray lines;
        for (int i = sent; i < sent + partSize; ++i)
            lines += i % 1000 == 0
                ? QByteArray("in/p00.png\n")
                : QByteArray(hostile.at(i % hostile.size())).replace('%', QByteArray::number(i))
                    + '\n';
        process.write(lines);
        while (answered < sent + partSize && process.waitForReadyRead(30'000))
            answered += process.readAllStandardOutput().count('\n');
        ASSERT_EQ(answered, sent + partSize);
        if (sent + partSize == lineCount / 10)
            early = residentPages();
    }
    EXPECT_GT(early, 0);
    EXPECT_LE(residentPages(), early * 1.1);
    EXPECT_EQ(end(), 1);
}
