#include "StandardOutput.h"

#include "HostError.h"
#include "StandardError.h"

#include <cerrno>
#include <unistd.h>

namespace host {

namespace {

[[noreturn]] void throwWriteFailed(int error)
{
    throw HostError(error == EPIPE ? ExitCode::ClosedPipe : ExitCode::WriteFailed,
        QStringLiteral("standard output"), qt_error_string(error),
        QStringLiteral("check where it leads"));
}

} // namespace

void writeOutput(const QByteArray& bytes)
{
    int written = 0;
    while (written < bytes.size()) {
        const ssize_t count = write(STDOUT_FILENO, bytes.constData() + written,
            static_cast<std::size_t>(bytes.size() - written));
        if (count >= 0)
            written += static_cast<int>(count);
        else if (errno == EAGAIN)
            waitForRoom(STDOUT_FILENO);
        else if (errno != EINTR)
            throwWriteFailed(errno);
    }
}

} // namespace host
