#include "StandardStreams.h"

#include "FileName.h"
#include "HostError.h"

#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <unistd.h>

namespace host {

namespace {

int descriptorOfErrors = STDERR_FILENO; // NOLINT(*-avoid-non-const-global-variables): set once

// Another process that shares the stream may have made it non-blocking.
void waitForRoom(int descriptor)
{
    constexpr int forever = -1;
    pollfd waiting { descriptor, POLLOUT, 0 };
    poll(&waiting, 1, forever);
}

// Returns 0 when all bytes are written, and errno otherwise.
int writeAll(int descriptor, const char* bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = write(descriptor, bytes, count);
        if (written >= 0) {
            bytes += written; // NOLINT(*-pro-bounds-pointer-arithmetic): write takes a pointer
            count -= static_cast<std::size_t>(written);
        } else if (errno == EAGAIN) {
            waitForRoom(descriptor);
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

} // namespace

void writeOutput(const QByteArray& bytes)
{
    const int error
        = writeAll(STDOUT_FILENO, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (error != 0)
        throw HostError(error == EPIPE ? ExitCode::ClosedPipe : ExitCode::WriteFailed,
            QStringLiteral("standard output"), qt_error_string(error),
            QStringLiteral("check where it leads"));
}

void writeError(const std::string& text)
{
    static std::mutex oneAtATime;
    const std::lock_guard<std::mutex> lock(oneAtATime);
    writeAll(descriptorOfErrors, text.data(), text.size()); // there is nowhere else to complain
}

const char* programName() { return program_invocation_short_name; }

void writeMessage(const std::string& message)
{
    writeError(std::string(programName()) + ": " + message + '\n');
}

void writeWarning(const QString& path, const QString& warning)
{
    const QString line = onOneLine(QStringLiteral("%1: %2").arg(path, warning));
    writeMessage(bytesOfName(line).toStdString());
}

int errorDescriptor() { return descriptorOfErrors; }

void keepLibrariesQuiet()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // sanitizers report to stderr
    // NOLINTBEGIN(cppcoreguidelines-pro-type-vararg): both functions are declared with an ellipsis
    const int ours = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    // NOLINTEND(cppcoreguidelines-pro-type-vararg)
    if (ours != -1 && nowhere != -1 && dup2(nowhere, STDERR_FILENO) != -1)
        descriptorOfErrors = ours;
    if (nowhere != -1)
        close(nowhere);
#endif
}

} // namespace host
