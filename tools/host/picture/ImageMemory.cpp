#include "ImageMemory.h"

#include <cstdlib>

namespace host {

bool isMemoryLeft(std::size_t bytes)
{
    // NOLINTBEGIN(cppcoreguidelines-no-malloc): volatile, or the compiler removes the unused allocation
    void* volatile const block = std::malloc(bytes);
    const bool isLeft = block != nullptr;
    std::free(block);
    // NOLINTEND(cppcoreguidelines-no-malloc)
    return isLeft;
}

} // namespace host
