#pragma once

#include <QByteArray>
#include <QStringList>

/// The result of one run of a program.
struct Outcome {
    int exitCode; ///< -1 when it crashed
    QByteArray out;
    QByteArray err;
};

/// Runs vxroi with \a arguments in the plain C locale.
Outcome runVxroi(const QStringList& arguments);

/// Runs \a command in a shell; $VXROI is the program.
Outcome runShell(const QString& command);

/// Whether \a err is one line that begins with "vxroi: ", contains \a part and ends in a remedy.
bool isOneLineNaming(const QByteArray& err, const QString& part);
