#pragma once

namespace vxroi {

class Wakeup;

/// From this call on, SIGINT, SIGTERM and SIGHUP end the program immediately with exit code 130. No partial files are
/// left, because files get their names only when they are complete. A closed pipe and the file size limit become write
/// errors instead of signals.
void endAtOnceOnSignals();

/// While an object exists, the first of these signals only requests the end of the program; a second one ends it
/// immediately.
class Interruption {
public:
    /// \param wakeup notified of the first signal; must outlive this object.
    explicit Interruption(const Wakeup& wakeup);
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// Whether a signal has arrived. May be called from any thread.
    static bool isRequested();
};

} // namespace vxroi
