#include "StandardError.h"

#include <mutex>
#include <unistd.h>

namespace host {

void writeError(const std::string& text)
{
    static std::mutex oneAtATime;
    const std::lock_guard<std::mutex> lock(oneAtATime);
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = write(STDERR_FILENO, text.data() + written, text.size() - written);
        if (count <= 0)
            return; // there is nowhere else to complain
        written += static_cast<std::size_t>(count);
    }
}

} // namespace host
