#pragma once

namespace vxroi {

/// While it lives, SIGTERM and SIGINT only ask the program to end; a second one ends it.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// Whether a signal has arrived. May be asked in any thread.
    static bool isRequested();
};

} // namespace vxroi
