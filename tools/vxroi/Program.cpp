#include "Program.h"

#include "host/FileName.h"
#include "host/StandardStreams.h"
#include "host/picture/ImageMemory.h"
#include "vxroi/concurrency/Interruption.h"
#include "vxroi/options/CommonOptions.h"
#include "vxroi/options/OptionRemedies.h"
#include "vxroi/options/WrongCommandLine.h"

#include <CLI/CLI.hpp>

#include <QCoreApplication>

#include <array>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <malloc.h>
#include <new>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

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
        host::writeMessage(host::noMemory);
        std::_Exit(static_cast<int>(host::ExitCode::Internal));
    } catch (...) {
        std::abort();
    }
}

// Whether the process has what the program needs at least; a line says what it lacks.
bool prepareProcess()
{
    keepFreedMemory();
    holdClosedStreams();
    host::keepLibrariesQuiet();
    endAtOnceOnSignals();
    std::set_terminate(endOnException);
    const bool areFilesLeft = areDescriptorsLeft();
    if (!areFilesLeft)
        host::writeMessage("too few files can be opened; allow more, see ulimit -n");
    else if (!host::isMemoryLeft(leastBytes))
        host::writeMessage(host::noMemory);
    else
        return true;
    return false;
}

ExitCode fail(ExitCode code, const QString& line)
{
    host::writeMessage(host::bytesOfName(host::onOneLine(line)).toStdString());
    return code;
}

ExitCode failAsWrong(const CLI::App& app, const QString& complaint)
{
    return fail(ExitCode::Usage, withHelp(complaint, app));
}

// Prints the answer to --help or --version, which the parser reports as exceptions.
void printAnswer(const CLI::App& app, const CLI::Success& wish)
{
    std::ostringstream answer;
    app.exit(wish, answer);
    host::writeOutput(QByteArray::fromStdString(answer.str()));
}

// The arguments in reverse order, as the parser takes them. The parser would split "[a,b]" as a list; "./[a,b]" is the
// same file.
std::vector<std::string> reversedArguments(int argc, char** argv)
{
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) {
        const std::string argument = argv[i];
        const bool isBracketed
            = argument.size() > 1 && argument.front() == '[' && argument.back() == ']';
        arguments.push_back(isBracketed ? "./" + argument : argument);
    }
    return arguments;
}

} // namespace

int runProgram(int argc, char** argv, const std::function<ExitCode()>& work)
try {
    if (!prepareProcess())
        return static_cast<int>(ExitCode::Internal);
    host::useForFileNames();
    useOptionRemedies();
    // No plugin of Qt is needed, and looking for them takes a tenth of the time of a small picture.
    QCoreApplication::setLibraryPaths({});
    const QCoreApplication application(argc, argv);
    return static_cast<int>(work());
} catch (const HostError& error) {
    // A closed pipe is no failure to report: its reader has what it wanted.
    const bool isSilent = error.code() == ExitCode::ClosedPipe;
    return static_cast<int>(isSilent ? error.code() : fail(error.code(), pathFrom(error.what())));
} catch (const std::bad_alloc&) {
    host::writeMessage(host::noMemory);
    return static_cast<int>(ExitCode::Internal);
} catch (const std::exception& error) {
    return static_cast<int>(
        fail(ExitCode::Internal, pathFrom(error.what()) + QStringLiteral("; please report this")));
}

ExitCode parse(CLI::App& app, int argc, char** argv, const ExitCode& exitCode)
try {
    app.parse(reversedArguments(argc, argv));
    return exitCode;
} catch (const CLI::Success& wish) {
    printAnswer(app, wish);
    return ExitCode::Success;
} catch (const CLI::ParseError& error) {
    return failAsWrong(app, complaintOf(app, error));
} catch (const HostError& error) {
    if (error.code() != ExitCode::Usage)
        throw;
    return failAsWrong(app, pathFrom(error.what()));
}

} // namespace vxroi
