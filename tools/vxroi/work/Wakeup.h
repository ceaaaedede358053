#pragma once

namespace vxroi {

/// Lets a thread wait for input and for work that is done elsewhere at once.
class Wakeup {
public:
    /// \throws host::HostError when the system gives no descriptor.
    Wakeup();
    ~Wakeup();
    Wakeup(const Wakeup&) = delete;
    Wakeup& operator=(const Wakeup&) = delete;

    /// Ends the wait() that runs, or the next one. May be called in any thread and in a signal handler.
    void notify() const;

    /// Waits until notify() is called or there is something to read from \a input, a descriptor.
    void wait(int input) const;

private:
    int events;
};

} // namespace vxroi
