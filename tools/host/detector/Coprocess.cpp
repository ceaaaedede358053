#include "Coprocess.h"

#include "host/FileName.h"
#include "host/StandardStreams.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace host {

namespace {

// The two ends of a pipe, closed when this goes out of scope unless they have been taken.
class Pipe {
public:
    Pipe()
    {
        if (pipe2(ends.data(), O_CLOEXEC) == -1)
            throw CoprocessError(
                std::string("cannot be started: ") + std::strerror(errno)); // NOLINT(concurrency-*)
    }
    ~Pipe()
    {
        for (const int end : ends) {
            if (end != -1)
                close(end);
        }
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int toRead() const { return ends.front(); }
    int toWrite() const { return ends.back(); }
    int takeToRead() { return std::exchange(ends.front(), -1); }
    int takeToWrite() { return std::exchange(ends.back(), -1); }

private:
    std::array<int, 2> ends { -1, -1 };
};

// What a started program does before it begins: where its streams lead, and which signals it gets.
class SpawnRules {
public:
    SpawnRules(int standardInput, int standardOutput)
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, standardInput, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, standardOutput, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, errorDescriptor(), STDERR_FILENO);
        sigset_t none;
        sigemptyset(&none);
        sigset_t all;
        sigfillset(&all);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setpgroup(&attributes, 0);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setflags(
            &attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnRules()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnRules(const SpawnRules&) = delete;
    SpawnRules& operator=(const SpawnRules&) = delete;

    posix_spawn_file_actions_t actions {};
    posix_spawnattr_t attributes {};
};

pid_t start(const QStringList& arguments, const SpawnRules& rules)
{
    std::vector<QByteArray> bytes;
    bytes.reserve(static_cast<std::size_t>(arguments.size()));
    for (const QString& argument : arguments)
        bytes.push_back(bytesOfName(argument));
    std::vector<char*> pointers;
    pointers.reserve(bytes.size() + 1);
    for (QByteArray& argument : bytes)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    pid_t process = -1;
    const int error = posix_spawnp(
        &process, pointers.front(), &rules.actions, &rules.attributes, pointers.data(), environ);
    if (error != 0)
        throw CoprocessError("cannot be started: " + qt_error_string(error).toStdString());
    return process;
}

} // namespace

Coprocess::Coprocess(const QStringList& arguments)
{
    // When the program has ended, writing to it fails instead of ending this one.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    Pipe toProgram;
    Pipe fromProgram;
    process = start(arguments, SpawnRules(toProgram.toRead(), fromProgram.toWrite()));
    input = toProgram.takeToWrite();
    output = fromProgram.takeToRead();
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): fcntl is declared with an ellipsis
    fcntl(input, F_SETFL, O_NONBLOCK);
}

Coprocess::~Coprocess()
{
    constexpr int mostMilliseconds = 1000;
    close(input);
    endWithin(mostMilliseconds);
    // Those that it has started may still run. Until it is waited for, its number belongs to its group alone.
    kill(-process, SIGKILL);
    waitpid(process, nullptr, 0);
    close(output);
}

QByteArray Coprocess::answerTo(const QByteArray& line, const QDeadlineTimer& deadline)
{
    QByteArray unsent = line + '\n';
    for (;;) {
        const int end = received.indexOf('\n');
        if (end > mostBytes || (end == -1 && received.size() > mostBytes))
            throw CoprocessError("answered with more than " + std::to_string(mostBytes) + " bytes");
        if (end != -1 && (end + 1 < received.size() || !unsent.isEmpty()))
            throw CoprocessError("answered out of turn");
        if (end != -1) {
            received.chop(1);
            return std::exchange(received, {});
        }
        const int milliseconds = static_cast<int>(deadline.remainingTime());
        std::array<pollfd, 2> ends { { { output, POLLIN, 0 }, { input, POLLOUT, 0 } } };
        const nfds_t count = unsent.isEmpty() ? 1 : 2;
        if (milliseconds == 0 || poll(ends.data(), count, milliseconds) == 0)
            throw CoprocessError("gave no answer in time");
        if (ends.front().revents != 0)
            receive();
        else if (ends.back().revents != 0)
            send(unsent);
    }
}

void Coprocess::send(QByteArray& unsent) const
{
    const ssize_t count = write(input, unsent.constData(), static_cast<std::size_t>(unsent.size()));
    if (count > 0)
        unsent.remove(0, static_cast<int>(count));
    else if (errno == EPIPE)
        unsent.clear(); // It reads no more; how it ended is seen at its output.
}

void Coprocess::receive()
{
    constexpr int mostAtOnce = 1 << 16;
    std::array<char, mostAtOnce> part {};
    const ssize_t count = read(output, part.data(), part.size());
    if (count > 0)
        received.append(part.data(), static_cast<int>(count));
    else if (count == 0)
        throwEnded();
}

void Coprocess::throwEnded()
{
    constexpr int mostMilliseconds = 1000;
    const std::optional<siginfo_t> end = endWithin(mostMilliseconds);
    if (!end)
        throw CoprocessError("has closed its output");
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): the system's
    const std::string number = std::to_string(end->si_status);
    throw CoprocessError(
        (end->si_code == CLD_EXITED ? "ended with exit code " : "was ended by signal ") + number);
}

// How the program has ended; nullopt: it runs still.
std::optional<siginfo_t> Coprocess::endWithin(int milliseconds) const
{
    const QDeadlineTimer deadline(milliseconds);
    for (;;) {
        siginfo_t end {};
        const auto number = static_cast<id_t>(process);
        waitid(P_PID, number, &end, WEXITED | WNOHANG | WNOWAIT);
        if (end.si_pid == process) // NOLINT(cppcoreguidelines-pro-type-union-access): the system's
            return end;
        if (deadline.hasExpired())
            return std::nullopt;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

} // namespace host
