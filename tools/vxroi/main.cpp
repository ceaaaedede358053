#include "CommandLine.h"
#include "Interruption.h"
#include "host/HostError.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <cstdlib>
#include <iostream>

namespace {

// Whether there is what the program needs beside its pictures. Qt does not say so when it finds none while
// it starts and loads plugins: it crashes, or waits for ever later.
bool isMemoryEnough()
{
    constexpr std::size_t leastBytes = std::size_t { 64 } << 20U;
    void* volatile const block
        = std::malloc(leastBytes); // volatile: compilers leave out what nobody uses
    const bool isEnough = block != nullptr;
    std::free(block);
    return isEnough;
}

} // namespace

int main(int argc, char** argv)
{
    vxroi::endAtOnceOnSignals();
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
