#pragma once

namespace vxroi {

/// Lets a thread wait for input and for notifications of other threads at the same time.
class Wakeup {
public:
    /// \throws host::HostError when the system refuses a descriptor.
    Wakeup();
    ~Wakeup();
    Wakeup(const Wakeup&) = delete;
    Wakeup& operator=(const Wakeup&) = delete;

    /// Ends the current wait(), or the next one. May be called from any thread and from a signal handler.
    void notify() const;

    /// Waits until notify() is called or the descriptor \a input is readable.
    void wait(int input) const;

private:
    int events;
};

} // namespace vxroi
