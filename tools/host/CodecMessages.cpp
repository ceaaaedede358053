#include "CodecMessages.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace host {

namespace {

// A message handler is a plain function, so what it collects lies beside it.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
QStringList collected;

void collect(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message)
{
    collected.append(message);
}

// What cannot be flushed is of no use to anybody.
void flushStderr() { static_cast<void>(std::fflush(stderr)); }

} // namespace

CodecMessages::CodecMessages()
    : previousHandler(qInstallMessageHandler(collect))
    , savedStderr(dup(STDERR_FILENO))
{
    collected.clear();
    flushStderr();
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): open is declared with an ellipsis
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

CodecMessages::~CodecMessages()
{
    flushStderr();
    dup2(savedStderr, STDERR_FILENO);
    close(savedStderr);
    qInstallMessageHandler(previousHandler);
}

bool CodecMessages::mention(const QString& words) const
{
    return !collected.filter(words, Qt::CaseInsensitive).isEmpty();
}

} // namespace host
