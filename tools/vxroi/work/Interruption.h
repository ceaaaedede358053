#pragma once

namespace vxroi {

class Wakeup;

/// From here on SIGINT, SIGTERM and SIGHUP end the program at once with exit code 130; nothing is left
/// behind, because files get their names when they are whole. A pipe that is closed and a file that must
/// not grow are errors of writing, not signals.
void endAtOnceOnSignals();

/// While it lives, these signals only ask the program to end; a second one ends it at once.
class Interruption {
public:
    /// \param wakeup is notified of the first; it must live longer.
    explicit Interruption(const Wakeup& wakeup);
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// Whether a signal has arrived. May be asked in any thread.
    static bool isRequested();
};

} // namespace vxroi
