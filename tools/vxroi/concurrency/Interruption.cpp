#include "Interruption.h"

#include "Wakeup.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"

#include <array>
#include <atomic>
#include <csignal>
#include <string_view>
#include <unistd.h>

namespace vxroi {

namespace {

constexpr std::array<int, 3> signals { SIGINT, SIGTERM, SIGHUP };

// Global, because signal handlers are plain functions.
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<bool> hasArrived { false };
std::atomic<const Wakeup*> waiting { nullptr };
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)
static_assert(
    std::atomic<bool>::is_always_lock_free && std::atomic<const Wakeup*>::is_always_lock_free,
    "a signal handler must not wait");

void endAtOnce(int /*signal*/)
{
    const std::string_view name = host::programName();
    constexpr std::string_view message = ": interrupted\n";
    // A failure cannot be reported anywhere.
    [[maybe_unused]] ssize_t written = write(host::errorDescriptor(), name.data(), name.size());
    written = write(host::errorDescriptor(), message.data(), message.size());
    _exit(static_cast<int>(host::ExitCode::Interrupted));
}

void request(int signal)
{
    if (hasArrived.exchange(true))
        endAtOnce(signal);
    waiting.load()->notify();
}

void handleBy(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler; // NOLINT(cppcoreguidelines-pro-type-union-access): the system's
    for (const int signal : signals)
        sigaction(signal, &action, nullptr);
}

} // namespace

void endAtOnceOnSignals()
{
    handleBy(endAtOnce);
    for (const int signal : { SIGPIPE, SIGXFSZ })
        static_cast<void>(std::signal(signal, SIG_IGN));
}

Interruption::Interruption(const Wakeup& wakeup)
{
    hasArrived = false;
    waiting = &wakeup;
    handleBy(request);
}

Interruption::~Interruption() { handleBy(endAtOnce); }

bool Interruption::isRequested() { return hasArrived; }

} // namespace vxroi
