#include "StandardError.h"

#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <unistd.h>

namespace host {

namespace {

int descriptor = STDERR_FILENO; // NOLINT(*-avoid-non-const-global-variables): set once

} // namespace

void writeError(const std::string& text)
{
    static std::mutex oneAtATime;
    const std::lock_guard<std::mutex> lock(oneAtATime);
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
        if (count >= 0)
            written += static_cast<std::size_t>(count);
        else if (errno == EAGAIN)
            waitForRoom(descriptor);
        else if (errno != EINTR)
            return; // there is nowhere else to complain
    }
}

void waitForRoom(int stream)
{
    constexpr int forever = -1;
    pollfd waiting { stream, POLLOUT, 0 };
    poll(&waiting, 1, forever);
}

int errorDescriptor() { return descriptor; }

void keepLibrariesQuiet()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // whose reports go there
    // NOLINTBEGIN(cppcoreguidelines-pro-type-vararg): both functions are declared with an ellipsis
    const int ours = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    // NOLINTEND(cppcoreguidelines-pro-type-vararg)
    if (ours != -1 && nowhere != -1 && dup2(nowhere, STDERR_FILENO) != -1)
        descriptor = ours;
    if (nowhere != -1)
        close(nowhere);
#endif
}

} // namespace host
