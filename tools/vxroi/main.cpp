#include "CommandLine.h"
#include "host/FileName.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"
#include "host/picture/ImageMemory.h"
#include "vxroi/concurrency/Interruption.h"

#include <QCoreApplication>

#include <array>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <malloc.h>
#include <new>
#include <unistd.h>

namespace {

// The memory that the program needs besides its pictures. When Qt or libvips run out of memory while they start or load
// plugins, they report nothing and crash or hang later.
constexpr std::size_t leastBytes = std::size_t { 384 } << 20U;

// By default glibc returns memory to the system after each picture; getting it back takes a sixth of the time of a
// small picture.
void keepFreedMemory()
{
    constexpr int largestKept = 32 << 20; // the largest block that is served from kept memory
    constexpr int mostKept = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, largestKept);
    mallopt(M_TRIM_THRESHOLD, mostKept);
}

// Whether the few files can be opened that the program needs besides its pictures: without them GLib, which Qt and
// libvips start, aborts.
bool areDescriptorsLeft()
{
    constexpr std::size_t few = 3;
    std::array<int, few> descriptors {};
    for (int& descriptor : descriptors)
        descriptor = dup(STDIN_FILENO);
    const bool areLeft = descriptors.back() != -1;
    for (const int descriptor : descriptors) {
        if (descriptor != -1)
            close(descriptor);
    }
    return areLeft;
}

// Opens a closed standard stream as /dev/null, in the mode that makes using it fail. Otherwise the next opened file
// would get its descriptor, and messages would be written into that file.
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

// Handles uncaught exceptions: std::bad_alloc escapes from threads of Qt.
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
    if (!areDescriptorsLeft()) {
        host::writeError("vxroi: too few files can be opened; allow more, see ulimit -n\n");
        return static_cast<int>(host::ExitCode::Internal);
    }
    if (!host::isMemoryLeft(leastBytes)) {
        host::writeError(host::noMemoryLine);
        return static_cast<int>(host::ExitCode::Internal);
    }
    host::useForFileNames();
    // No plugin of Qt is needed, and looking for them takes a tenth of the time of a small picture.
    QCoreApplication::setLibraryPaths({});
    const QCoreApplication application(argc, argv);
    return static_cast<int>(vxroi::runCommandLine(argc, argv));
}
