#include "CodecMessages.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace host {

namespace {

// A message handler is a plain function, so what it collects lies beside it.
QStringList collected;

void collect(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message)
{
    collected.append(message);
}

} // namespace

CodecMessages::CodecMessages()
    : previousHandler(qInstallMessageHandler(collect))
    , savedStderr(dup(STDERR_FILENO))
{
    collected.clear();
    std::fflush(stderr);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

CodecMessages::~CodecMessages()
{
    std::fflush(stderr);
    dup2(savedStderr, STDERR_FILENO);
    close(savedStderr);
    qInstallMessageHandler(previousHandler);
}

bool CodecMessages::mention(const QString& words) const
{
    return !collected.filter(words, Qt::CaseInsensitive).isEmpty();
}

} // namespace host
