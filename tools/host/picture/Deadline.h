#pragma once

#include <QElapsedTimer>

#include <limits>

namespace host {

/// How long a picture may take.
class Deadline {
public:
    /// Begins now. \param mostSeconds above 0.
    explicit Deadline(int mostSeconds)
        : seconds(mostSeconds)
    {
        timer.start();
    }

    static Deadline never() { return Deadline(std::numeric_limits<int>::max()); }

    bool hasPassed() const { return timer.hasExpired(qint64 { 1000 } * seconds); }
    int mostSeconds() const { return seconds; }

private:
    QElapsedTimer timer;
    int seconds;
};

} // namespace host
