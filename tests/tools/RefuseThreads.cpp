// Preloaded into a program, limits its threads like a system that is short of processes: THREADS_AT_ONCE is how many
// may run besides the main thread, THREADS_IN_ALL how many may be started in total.

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <dlfcn.h>
#include <memory>
#include <new>
#include <pthread.h>

namespace {

using Start = void* (*)(void*);

std::atomic<int> alive { 0 }; // NOLINT(*-avoid-non-const-global-variables)
std::atomic<int> begun { 0 }; // NOLINT(*-avoid-non-const-global-variables)

struct Thread {
    Start start;
    void* argument;
};

void* run(void* argument)
{
    const std::unique_ptr<Thread> thread(static_cast<Thread*>(argument));
    void* const result = thread->start(thread->argument);
    --alive;
    return result;
}

long limitOf(const char* name)
{
    const char* const limit = std::getenv(name);
    constexpr long none = 1000;
    constexpr int decimal = 10;
    return limit == nullptr ? none : std::strtol(limit, nullptr, decimal);
}

} // namespace

extern "C" int createThread(
    pthread_t* thread, const pthread_attr_t* attributes, Start start, void* argument)
{
    using Create = int (*)(pthread_t*, const pthread_attr_t*, Start, void*);
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    if (alive >= limitOf("THREADS_AT_ONCE") || begun >= limitOf("THREADS_IN_ALL"))
        return EAGAIN;
    ++alive;
    ++begun;
    auto* const passed = new (std::nothrow) Thread { start, argument };
    return passed == nullptr ? EAGAIN : create(thread, attributes, run, passed);
}

// NOLINTNEXTLINE(readability-named-parameter): the C library has names of its own
extern "C" int pthread_create(pthread_t*, const pthread_attr_t*, Start, void*) noexcept
    __attribute__((alias("createThread")));
