#pragma once

#include <QElapsedTimer>

#include <limits>

namespace host {

/// The time limit of one picture.
class Deadline {
public:
    /// Starts now; a limit of 0 seconds has passed immediately.
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
