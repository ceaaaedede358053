#include "CodecMessages.h"

#include <cstdio>
#include <fcntl.h>
#include <mutex>
#include <unistd.h>

namespace host {

namespace {

// A message handler is a plain function and stderr belongs to the process, so what they need to know
// lies beside the objects.
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
thread_local CodecMessages* collecting = nullptr;
std::mutex redirection;
int redirectionCount = 0;
int savedStderr = STDERR_FILENO;
QtMessageHandler previousHandler = nullptr;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

// What cannot be flushed is of no use to anybody.
void flushStderr() { static_cast<void>(std::fflush(stderr)); }

} // namespace

void collectCodecMessage(const QString& message) { collecting->lines.append(message); }

namespace {

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (collecting != nullptr)
        collectCodecMessage(message);
    else if (previousHandler != nullptr)
        previousHandler(type, context, message);
    else
        writeError(qFormatLogMessage(type, context, message).toStdString() + '\n');
}

void redirect()
{
    previousHandler = qInstallMessageHandler(handleMessage);
    flushStderr();
    savedStderr = dup(STDERR_FILENO);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): open is declared with an ellipsis
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

void restore()
{
    flushStderr();
    dup2(savedStderr, STDERR_FILENO);
    close(savedStderr);
    savedStderr = STDERR_FILENO;
    qInstallMessageHandler(previousHandler);
}

} // namespace

CodecMessages::CodecMessages()
{
    const std::lock_guard<std::mutex> lock(redirection);
    collecting = this;
    if (redirectionCount++ == 0)
        redirect();
}

CodecMessages::~CodecMessages()
{
    const std::lock_guard<std::mutex> lock(redirection);
    collecting = nullptr;
    if (--redirectionCount == 0)
        restore();
}

bool CodecMessages::mention(const QString& words) const
{
    return !lines.filter(words, Qt::CaseInsensitive).isEmpty();
}

void writeError(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(redirection);
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = write(savedStderr, text.data() + written, text.size() - written);
        if (count <= 0)
            return; // there is nowhere else to complain
        written += static_cast<std::size_t>(count);
    }
}

} // namespace host
