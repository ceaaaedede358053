#include "CommandLine.h"
#include "Interruption.h"
#include "host/FileName.h"
#include "host/HostError.h"
#include "host/ImageMemory.h"
#include "host/StandardError.h"

#include <QCoreApplication>

#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <iostream>
#include <new>
#include <unistd.h>

namespace {

// What the program needs beside its pictures. Qt and libvips do not say so when they find none while they start
// and load plugins: they crash, or wait for ever later.
constexpr std::size_t leastBytes = std::size_t { 384 } << 20U;

// A standard stream that is closed would be opened again as the next file, and written into. These can neither be
// read nor written.
void holdClosedStreams()
{
    for (const int stream : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): both are declared with an ellipsis
        if (fcntl(stream, F_GETFD) == -1
            && open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream)
            std::_Exit(static_cast<int>(host::ExitCode::Internal));
    }
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
    holdClosedStreams();
    vxroi::endAtOnceOnSignals();
    std::set_terminate(endOnException);
    if (!host::isMemoryLeft(leastBytes)) {
        std::cerr << host::noMemoryLine;
        return static_cast<int>(host::ExitCode::Internal);
    }
    host::useForFileNames();
    // Qt finds its image format plugins through the application object.
    const QCoreApplication application(argc, argv);
    return static_cast<int>(vxroi::runCommandLine(argc, argv));
}
