#pragma once

#include <random>

namespace support {

/// Random numbers that are the same in every run.
class Random {
public:
    explicit Random(unsigned seed)
        : engine(seed)
    {
    }

    /// Any 32-bit word.
    unsigned word() { return static_cast<unsigned>(engine()); }

    /// A number from 0 to \a limit - 1.
    int below(int limit) { return static_cast<int>(word() % static_cast<unsigned>(limit)); }

private:
    std::mt19937 engine;
};

} // namespace support
