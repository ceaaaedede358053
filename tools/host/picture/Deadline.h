#pragma once

#include <QElapsedTimer>

#include <limits>

namespace host {

/// How long a picture may take.
class Deadline {
public:
    /// Begins now; of 0 seconds it has passed at once.
    explicit Deadline(int mostSeconds)
        : seconds(mostSeconds)
    {
        timer.start();
    }

    static Deadline never() { return Deadline(std::numeric_limits<int>::max()); }

    bool hasPassed() const { return timer.nsecsElapsed() > qint64 { 1'000'000'000 } * seconds; }
    int mostSeconds() const { return seconds; }

private:
    QElapsedTimer timer;
    int seconds;
};

} // namespace host
