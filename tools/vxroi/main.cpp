#include "CommandLine.h"
#include "Interruption.h"
#include "host/HostError.h"
#include "host/ImageMemory.h"
#include "host/StandardError.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

namespace {

// What the program needs beside its pictures. Qt and libvips do not say so when they find none while they start
// and load plugins: they crash, or wait for ever later.
constexpr std::size_t leastBytes = std::size_t { 384 } << 20U;

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
    vxroi::endAtOnceOnSignals();
    std::set_terminate(endOnException);
    if (!host::isMemoryLeft(leastBytes)) {
        std::cerr << host::noMemoryLine;
        return static_cast<int>(host::ExitCode::Internal);
    }
    // File names are UTF-8 in every locale, the plain C locale of build scripts included.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Qt finds its image format plugins through the application object.
    const QCoreApplication application(argc, argv);
    return static_cast<int>(vxroi::runCommandLine(argc, argv));
}
