#include "Interruption.h"

#include <atomic>
#include <csignal>

namespace vxroi {

namespace {

constexpr int signals[] = { SIGINT, SIGTERM };

// A signal handler is a plain function, so what it sets lies beside the object.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<bool> hasArrived { false };
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler must not wait");

void request(int) { hasArrived = true; }

} // namespace

Interruption::Interruption()
{
    hasArrived = false;
    struct sigaction action = {};
    action.sa_handler = request;
    // No SA_RESTART: the main thread may be waiting for a list that never ends.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : signals)
        sigaction(signal, &action, nullptr);
}

Interruption::~Interruption()
{
    for (const int signal : signals)
        std::signal(signal, SIG_DFL);
}

bool Interruption::isRequested() { return hasArrived; }

} // namespace vxroi
