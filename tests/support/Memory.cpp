#include "Memory.h"

#include <array>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace {

// A figure of this process in bytes, by its name in /proc/self/status.
double statusOf(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    double kibibytes = 0;
    while (status >> word) {
        if (word == name + ":" && status >> kibibytes)
            return kibibytes * 1024;
    }
    return 0;
}

} // namespace

double support::residentMemory() { return statusOf("VmRSS"); }

double support::addressSpace() { return statusOf("VmSize"); }

double support::peakMemoryOf(const std::function<void()>& work)
{
    std::array<int, 2> ends {};
    if (pipe(ends.data()) != 0)
        return 0;
    const pid_t child = fork();
    if (child == 0) {
        const double before = residentMemory();
        work();
        const double peak = statusOf("VmHWM") - before;
        const bool isWritten = write(ends[1], &peak, sizeof peak) == sizeof peak;
        _exit(isWritten ? 0 : 1);
    }
    close(ends[1]);
    double peak = 0;
    if (read(ends[0], &peak, sizeof peak) != sizeof peak)
        peak = 0;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return peak;
}
