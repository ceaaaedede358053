#pragma once

#include "ExitCode.h"

#include <QString>

#include <stdexcept>

namespace host {

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

/// \a text on one line: control characters, which a file name may hold, become question marks.
QString onOneLine(QString text);

} // namespace host
