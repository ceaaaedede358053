#include "host/StandardStreams.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <functional>
#include <future>
#include <poll.h>
#include <unistd.h>

namespace {

// Redirects \a stream into a non-blocking pipe while \a write runs, and returns what arrives at the other end.
QByteArray readWhile(int stream, const std::function<void()>& write)
{
    std::array<int, 2> ends {};
    EXPECT_EQ(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
    const int before = dup(stream);
    dup2(ends[1], stream);
    close(ends[1]);
    std::future<QByteArray> arrived = std::async(std::launch::async, [end = ends[0]] {
        QByteArray bytes;
        std::array<char, 1000> part {};
        pollfd waiting { end, POLLIN, 0 };
        for (ssize_t count = 1; count > 0;) {
            poll(&waiting, 1, -1);
            count = read(end, part.data(), part.size());
            bytes.append(part.data(), static_cast<int>(std::max<ssize_t>(count, 0)));
        }
        return bytes;
    });
    EXPECT_NO_THROW(write());
    dup2(before, stream);
    close(before);
    QByteArray bytes = arrived.get();
    close(ends[0]);
    return bytes;
}

// More than a pipe can hold.
QByteArray large() { return QByteArray(1 << 20, 'x'); }

} // namespace

TEST(StandardStreams, outputArrivesWholeThroughAPipeThatDoesNotWait)
{
    EXPECT_EQ(readWhile(STDOUT_FILENO, [] { host::writeOutput(large()); }), large());
}

TEST(StandardStreams, errorsArriveWholeThroughAPipeThatDoesNotWait)
{
    EXPECT_EQ(readWhile(STDERR_FILENO, [] { host::writeError(large().toStdString()); }), large());
}
