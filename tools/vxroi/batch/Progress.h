#pragma once

#include <QElapsedTimer>
#include <QString>

#include <array>
#include <string>

namespace vxroi {

/// What became of an input.
enum class Outcome {
    Kept, ///< the record of an earlier run stands
    Done,
    Retried, ///< it had failed, and has not now
    Failed, ///< now, or in an earlier run whose record stands
};

/// Says on stderr how far a batch has come: a bar on a terminal, a line now and then elsewhere.
class Progress {
public:
    /// \param total how many pictures there are; -1 when that is not known.
    /// \param isQuiet say nothing at all.
    Progress(qint64 total, bool isQuiet);

    /// A picture that is done.
    /// \param problem what went wrong now; empty when nothing did.
    void add(Outcome outcome, const std::string& problem = {});

    /// Takes the bar away and sums up.
    /// \param dropped how many records of inputs are gone that are no longer on the list; -1 where none is resumed.
    void finish(qint64 dropped);

    /// Says one line, unless it is to be quiet.
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
    std::array<qint64, 4> counts {}; ///< of each Outcome
    QElapsedTimer sinceStart;
    QElapsedTimer sinceShown;
};

} // namespace vxroi
