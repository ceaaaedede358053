#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QStringList>

#include <csignal>
#include <optional>
#include <stdexcept>
#include <sys/types.h>

namespace host {

/// Why a co-process gave no answer; what() follows its name: "ended with exit code 3".
class CoprocessError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A program that answers each line on its standard input with a line on its standard output. Its stderr is that of
/// this program. It runs in a process group of its own, so that keys that interrupt this program do not reach it.
class Coprocess {
public:
    static constexpr int mostBytes = 1 << 20; ///< of an answer

    /// Starts the program.
    /// \param arguments its file, searched for in PATH, and its arguments.
    /// \throws CoprocessError
    explicit Coprocess(const QStringList& arguments);

    /// Closes its standard input, and kills it with all processes of its group if it has not ended a second later.
    ~Coprocess();
    Coprocess(const Coprocess&) = delete;
    Coprocess& operator=(const Coprocess&) = delete;

    /// Sends \a line, and waits for the answer. After a failure the object is of no further use.
    /// \param line without its newline
    /// \return the answer, without its newline.
    /// \throws CoprocessError
    QByteArray answerTo(const QByteArray& line, const QDeadlineTimer& deadline);

private:
    void send(QByteArray& unsent) const;
    void receive();
    [[noreturn]] void throwEnded();
    std::optional<siginfo_t> endWithin(int milliseconds) const;

    int input = -1; ///< the end of a pipe, to write to
    int output = -1; ///< the end of a pipe, to read from
    pid_t process = -1;
    QByteArray received;
};

} // namespace host
