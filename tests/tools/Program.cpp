#include "Program.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace {

Outcome run(const QString& program, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    environment.insert(QStringLiteral("VXROI"), QStringLiteral(VXROI_PROGRAM));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.waitForFinished(-1);
    const bool crashed = process.exitStatus() != QProcess::NormalExit
        || process.error() == QProcess::FailedToStart;
    return { crashed ? -1 : process.exitCode(), process.readAllStandardOutput(),
        process.readAllStandardError() };
}

} // namespace

Outcome runVxroi(const QStringList& arguments)
{
    return run(QStringLiteral(VXROI_PROGRAM), arguments);
}

Outcome runShell(const QString& command)
{
    return run(QStringLiteral("/bin/sh"), { QStringLiteral("-c"), command });
}

bool isOneLineNaming(const QByteArray& err, const QString& part)
{
    return err.startsWith("vxroi: ") && err.count('\n') == 1 && err.endsWith('\n')
        && err.contains(part.toUtf8()) && err.contains("; ");
}
