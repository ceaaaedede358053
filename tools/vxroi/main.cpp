#include "CommandLine.h"
#include "Interruption.h"
#include "host/CodecMessages.h"
#include "host/HostError.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

namespace {

// Whether there is what the program needs beside its pictures. Qt does not say so when it finds none while
// it starts and loads plugins: it crashes, or waits for ever later.
bool isMemoryEnough()
{
    constexpr std::size_t leastBytes = std::size_t { 64 } << 20U;
    // NOLINTBEGIN(cppcoreguidelines-no-malloc): volatile, because compilers leave out what nobody uses
    void* volatile const block = std::malloc(leastBytes);
    const bool isEnough = block != nullptr;
    std::free(block);
    // NOLINTEND(cppcoreguidelines-no-malloc)
    return isEnough;
}

// For exceptions that nobody catches: Qt's threads let lack of memory out.
[[noreturn]] void endOnException()
{
    try {
        std::rethrow_exception(std::current_exception());
    } catch (const std::bad_alloc&) {
        host::writeError(vxroi::noMemoryLine);
        std::_Exit(static_cast<int>(host::ExitCode::Internal));
    } catch (...) {
        std::abort();
    }
}

} // namespace

int main(int argc, char** argv)
{
    vxroi::endAtOnceOnSignals();
    std::set_terminate(endOnException);
    if (!isMemoryEnough()) {
        std::cerr << vxroi::noMemoryLine;
        return static_cast<int>(host::ExitCode::Internal);
    }
    // File names are UTF-8 in every locale, the plain C locale of build scripts included.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Qt finds its image format plugins through the application object.
    const QCoreApplication application(argc, argv);
    return static_cast<int>(vxroi::runCommandLine(argc, argv));
}
