#include "Wakeup.h"

#include "host/HostError.h"

#include <array>
#include <cstdint>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace vxroi {

Wakeup::Wakeup()
    : events(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (events == -1)
        throw host::HostError(host::ExitCode::Internal, QStringLiteral("vxroi"),
            QStringLiteral("the system refuses another open file"),
            QStringLiteral("allow more, see ulimit -n"));
}

Wakeup::~Wakeup() { close(events); }

void Wakeup::notify() const
{
    const std::uint64_t once = 1;
    // Fails only when 2^64 notifications are pending.
    [[maybe_unused]] const ssize_t written = write(events, &once, sizeof once);
}

void Wakeup::wait(int input) const
{
    constexpr int forever = -1;
    std::array<pollfd, 2> sources { { { events, POLLIN, 0 }, { input, POLLIN, 0 } } };
    poll(sources.data(), sources.size(), forever);
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t taken = read(events, &count, sizeof count);
}

} // namespace vxroi
