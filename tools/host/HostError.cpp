#include "HostError.h"

#include <algorithm>

namespace host {

HostError::HostError(
    ExitCode code, const QString& subject, const QString& reason, const QString& remedy)
    : std::runtime_error(
        onOneLine(QStringLiteral("%1: %2; %3").arg(subject, reason, remedy)).toStdString())
    , exitCode(code)
    , whatIsWrong(onOneLine(reason))
    , whatToDo(onOneLine(remedy))
{
}

HostError threadsRefused()
{
    return HostError(ExitCode::Internal, QStringLiteral("threads"),
        QStringLiteral("the system refuses to start them"),
        QStringLiteral("allow more processes and more memory, see ulimit -u and ulimit -v"));
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
