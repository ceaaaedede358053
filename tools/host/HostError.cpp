#include "HostError.h"

#include "FileName.h"
#include "Remedies.h"

#include <algorithm>

namespace host {

HostError::HostError(
    ExitCode code, const QString& subject, const QString& reason, const QString& remedy)
    : std::runtime_error(
        bytesOfName(onOneLine(QStringLiteral("%1: %2; %3").arg(subject, reason, remedy)))
            .toStdString())
    , exitCode(code)
    , atFault(onOneLine(subject))
    , whatIsWrong(onOneLine(reason))
    , whatToDo(onOneLine(remedy))
    , retryable(code != ExitCode::Usage && code != ExitCode::UnreadableInput)
{
}

HostError retryableReadError(const QString& path, const QString& reason, const QString& remedy)
{
    HostError error(ExitCode::UnreadableInput, path, reason, remedy);
    error.retryable = true;
    return error;
}

HostError threadsRefused()
{
    return HostError(ExitCode::Internal, QStringLiteral("threads"),
        QStringLiteral("the system refuses to start them"),
        QStringLiteral("allow more processes and more memory, see ulimit -u and ulimit -v"));
}

HostError tooManyPixels(const QString& path, const QString& reason, qint64 pixels)
{
    QString remedy = remedies().tooManyPixels;
    remedy.replace(QLatin1String("%1"), QString::number(pixels));
    return retryableReadError(path, reason, remedy);
}

HostError tooSlow(const QString& path, int mostSeconds)
{
    return retryableReadError(
        path, QStringLiteral("takes more than %1 seconds").arg(mostSeconds), remedies().tooSlow);
}

QString onOneLine(QString text)
{
    const auto isControl = [](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line
            || c.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(text.begin(), text.end(), isControl, QLatin1Char('?'));
    return text;
}

} // namespace host
