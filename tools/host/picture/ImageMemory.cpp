#include "ImageMemory.h"

#include <cstdlib>

namespace host {

bool isMemoryLeft(std::size_t bytes)
{
    // NOLINTBEGIN(cppcoreguidelines-no-malloc): volatile, because compilers leave out what nobody uses
    void* volatile const block = std::malloc(bytes);
    const bool isLeft = block != nullptr;
    std::free(block);
    // NOLINTEND(cppcoreguidelines-no-malloc)
    return isLeft;
}

} // namespace host
