#include "host/files/FileState.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace {

QString fileOf(const samples::SampleFolder& folder)
{
    QString path = folder.save(QByteArray("abc"), QStringLiteral("file"));
    // A billion seconds after the epoch is 2001-09-09 01:46:40 UTC.
    const std::array<timespec, 2> times { { { 0, 0 }, { 1'000'000'000, 3'040'050 } } };
    EXPECT_EQ(utimensat(AT_FDCWD, path.toUtf8().constData(), times.data(), 0), 0);
    return path;
}

} // namespace

TEST(FileState, isItsSizeAndItsTimeToTheNanosecond)
{
    const samples::SampleFolder folder;
    const QJsonObject expected { { QStringLiteral("bytes"), 3 },
        { QStringLiteral("modified"), QStringLiteral("2001-09-09T01:46:40.003040050Z") } };
    EXPECT_EQ(host::stateOf(fileOf(folder), host::KnownBy::Time), expected);
}

TEST(FileState, isTheSameInAllThreads)
{
    const samples::SampleFolder folder;
    const QString path = fileOf(folder);
    std::vector<std::optional<QJsonObject>> states(8);
    std::vector<std::thread> threads;
    threads.reserve(states.size());
    for (std::optional<QJsonObject>& state : states)
        threads.emplace_back([&state, &path] { state = host::stateOf(path, host::KnownBy::Time); });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::optional<QJsonObject>& state : states)
        EXPECT_EQ(state, states.front());
}

TEST(FileState, isItsSizeAndItsChecksumWhenAsked)
{
    const samples::SampleFolder folder;
    // The SHA-256 of "abc" is the first example in FIPS 180-2.
    const QJsonObject expected { { QStringLiteral("bytes"), 3 },
        { QStringLiteral("sha256"),
            QStringLiteral("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad") } };
    EXPECT_EQ(host::stateOf(fileOf(folder), host::KnownBy::Checksum), expected);
}

TEST(FileState, isNoneOfWhatIsNoFile)
{
    const samples::SampleFolder folder;
    EXPECT_FALSE(host::stateOf(folder.path(QStringLiteral("none")), host::KnownBy::Time));
    EXPECT_FALSE(host::stateOf(folder.path(QString()), host::KnownBy::Time));
    EXPECT_FALSE(host::stateOf(QStringLiteral("/dev/zero"), host::KnownBy::Checksum));
}
