#pragma once

#include <QElapsedTimer>
#include <QString>

#include <array>
#include <string>

namespace vxroi {

/// The outcome of one input.
enum class Outcome {
    Kept, ///< the record of an earlier run is kept
    Done,
    Retried, ///< failed in an earlier run, and succeeded now
    Failed, ///< failed now, or in an earlier run whose record is kept
};

/// Reports the progress of a batch on stderr: as a bar on a terminal, as occasional lines elsewhere.
class Progress {
public:
    /// \param total the number of pictures; -1 when it is not known.
    /// \param isQuiet whether to print nothing.
    Progress(qint64 total, bool isQuiet);

    /// Counts a finished picture.
    /// \param problem a line about what went wrong; empty: nothing did.
    void add(Outcome outcome, const std::string& problem = {});

    /// Removes the bar and prints the summary.
    /// \param dropped the number of earlier inputs that are no longer in the list; -1 when the run is not resumed.
    void finish(qint64 dropped);

    /// Prints one line, unless quiet.
    void say(const std::string& line) const;

    qint64 count() const;
    qint64 count(Outcome outcome) const { return counts[static_cast<std::size_t>(outcome)]; }

private:
    QString state() const;
    QString bar() const;
    void show();

    qint64 total;
    bool isQuiet;
    bool isTerminal;
    std::array<qint64, 4> counts {}; ///< for each Outcome
    QElapsedTimer sinceStart;
    QElapsedTimer sinceShown;
};

} // namespace vxroi
