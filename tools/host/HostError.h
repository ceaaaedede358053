#pragma once

#include <QString>

#include <stdexcept>

namespace host {

/// The exit codes of the programs; the numbers are those of sysexits.h.
enum class ExitCode {
    Success = 0,
    SomeFailed = 1, ///< some of several inputs failed
    Usage = 64, ///< the command line is wrong
    UnreadableInput = 65, ///< the file is not a picture, or a damaged one
    MissingInput = 66, ///< the file is not there or must not be opened
    Internal = 70, ///< the system refuses memory or threads, or a fault of the program itself
    CannotCreate = 73, ///< the output cannot be created
    WriteFailed = 74, ///< writing began and failed; nothing is left behind
    Interrupted = 130, ///< a signal asked the program to end
    ClosedPipe = 141, ///< nobody reads standard output any more; a program says nothing of it
};

/// Ends a command with one line that says what is wrong and what to do about it.
class HostError : public std::runtime_error {
public:
    /// \param subject the file or argument at fault
    /// \param reason what is wrong with it
    /// \param remedy what the user can do
    HostError(ExitCode code, const QString& subject, const QString& reason, const QString& remedy);

    ExitCode code() const { return exitCode; }
    const QString& subject() const { return atFault; }
    const QString& reason() const { return whatIsWrong; }
    const QString& remedy() const { return whatToDo; }

    /// Whether the same input may do another time: what is in its way lies outside of it, such as a missing file, a
    /// full disk, or a limit that the user may raise.
    bool isFromOutside() const { return isOutside; }

private:
    friend HostError unreadableForNow(
        const QString& path, const QString& reason, const QString& remedy);

    ExitCode exitCode;
    QString atFault;
    QString whatIsWrong;
    QString whatToDo;
    bool isOutside;
};

/// What a program says of a picture that it may read another time: a limit stood in the way, or a pipe that was silent.
HostError unreadableForNow(const QString& path, const QString& reason, const QString& remedy);

/// What a program says when the system refuses it a thread that it needs.
HostError threadsRefused();

/// What a program says of a picture that has taken all the time it may take.
HostError tooSlow(const QString& path, int mostSeconds);

/// What the program says before it ends with ExitCode::Internal for want of memory.
constexpr const char* noMemoryLine
    = "vxroi: there is not enough memory; allow more, see ulimit -v\n";

/// Writes one line to stderr that says what the user should know of the picture at \a path.
void writeWarning(const QString& path, const QString& warning);

/// \a text on one line: control characters, which a file name may hold, become question marks.
QString onOneLine(QString text);

} // namespace host
