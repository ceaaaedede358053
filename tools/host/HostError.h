#pragma once

#include "ExitCode.h"

#include <QString>

#include <stdexcept>

namespace host {

/// An error that ends a command with one line: what is wrong, and what to do about it.
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

    /// Whether a retry with the same input may succeed, because the cause lies outside of it: a missing file, a full
    /// disk, or a limit that the user may raise.
    bool isRetryable() const { return retryable; }

private:
    friend HostError retryableReadError(
        const QString& path, const QString& reason, const QString& remedy);

    ExitCode exitCode;
    QString atFault;
    QString whatIsWrong;
    QString whatToDo;
    bool retryable;
};

/// The error for a picture that a retry may read: it exceeds a limit, or nothing arrived from its pipe.
HostError retryableReadError(const QString& path, const QString& reason, const QString& remedy);

/// The error when the system refuses a thread that the program needs.
HostError threadsRefused();

/// The error for a picture that has more pixels than are allowed, or whose crop would have.
/// \param pixels the limit that would allow it.
HostError tooManyPixels(const QString& path, const QString& reason, qint64 pixels);

/// The error for a picture that has used up its time limit.
HostError tooSlow(const QString& path, int mostSeconds);

/// \a text on one line: control characters, which a file name may contain, become question marks.
QString onOneLine(QString text);

} // namespace host
