#pragma once

#include <QElapsedTimer>
#include <QString>

#include <string>

namespace vxroi {

/// Says on stderr how far a batch has come: a bar on a terminal, a line now and then elsewhere.
class Progress {
public:
    /// \param total how many pictures there are; -1 when that is not known.
    /// \param isQuiet say nothing at all.
    Progress(qint64 total, bool isQuiet);

    /// A picture that an earlier run is done with.
    void addKept(bool hasFailed);

    /// A picture that is done now.
    /// \param problem what went wrong; empty when nothing did.
    void addDone(const std::string& problem);

    /// Takes the bar away and sums up.
    void finish();

    qint64 done() const { return doneCount; }
    qint64 failed() const { return failedCount; }

private:
    QString state() const;
    QString bar() const;
    void show();

    qint64 total;
    bool isQuiet;
    bool isTerminal;
    qint64 keptCount = 0;
    qint64 doneCount = 0;
    qint64 failedCount = 0;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceShown;
};

} // namespace vxroi
