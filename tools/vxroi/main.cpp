#include "CommandLine.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"
#include "host/files/FileName.h"
#include "host/picture/ImageMemory.h"
#include "vxroi/work/Interruption.h"

#include <QCoreApplication>

#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <malloc.h>
#include <new>
#include <unistd.h>

namespace {

// What the program needs beside its pictures. Qt and libvips do not say so when they find none while they start
// and load plugins: they crash, or wait for ever later.
constexpr std::size_t leastBytes = std::size_t { 384 } << 20U;

// glibc returns memory to the system after each picture, and taking it in again costs a sixth of the time that a
// small one takes.
void keepFreedMemory()
{
    constexpr int largestKept = 32 << 20; // the largest block that glibc takes from memory it has
    constexpr int mostKept = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, largestKept);
    mallopt(M_TRIM_THRESHOLD, mostKept);
}

// A standard stream that is closed would be opened again as the next file, and written into. These can neither be
// read nor written.
void holdClosedStreams()
{
    // NOLINTBEGIN(cppcoreguidelines-pro-type-vararg): both functions are declared with an ellipsis
    for (const int stream : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) {
        const bool isOpen = fcntl(stream, F_GETFD) != -1;
        const int uselessMode = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (!isOpen && open("/dev/null", uselessMode) != stream)
            std::_Exit(static_cast<int>(host::ExitCode::Internal));
    }
    // NOLINTEND(cppcoreguidelines-pro-type-vararg)
}

// For exceptions that nobody catches: Qt's threads let lack of memory out.
[[noreturn]] void endOnException()
{
    try {
        std::rethrow_exception(std::current_exception());
    } catch (const std::bad_alloc&) {
        host::writeError(host::noMemoryLine);
        std::_Exit(static_cast<int>(host::ExitCode::Internal));
    } catch (...) {
        std::abort();
    }
}

} // namespace

int main(int argc, char** argv)
{
    keepFreedMemory();
    holdClosedStreams();
    host::keepLibrariesQuiet();
    vxroi::endAtOnceOnSignals();
    std::set_terminate(endOnException);
    if (!host::isMemoryLeft(leastBytes)) {
        host::writeError(host::noMemoryLine);
        return static_cast<int>(host::ExitCode::Internal);
    }
    host::useForFileNames();
    // No plugin of Qt is needed, and looking for them takes a tenth of what a small picture takes.
    QCoreApplication::setLibraryPaths({});
    const QCoreApplication application(argc, argv);
    return static_cast<int>(vxroi::runCommandLine(argc, argv));
}
