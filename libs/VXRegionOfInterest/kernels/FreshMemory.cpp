#include "FreshMemory.h"

#include <algorithm>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

void vx::kernels::adviseLargePages(void* memory, std::size_t bytes)
{
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    constexpr std::size_t fewBytes = std::size_t { 16 } << 20U;
    if (bytes < fewBytes)
        return;
    // Advice is given for whole pages. Where it is not taken, small ones come as ever.
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t skipped = page - reinterpret_cast<std::size_t>(memory) % page;
    madvise(static_cast<char*>(memory) + skipped, (bytes - skipped) / page * page, MADV_HUGEPAGE);
#else
    static_cast<void>(memory);
    static_cast<void>(bytes);
#endif
}

std::size_t vx::kernels::withRoomToSpare(std::size_t bytes)
{
    // What the allocator and an alignment add leaves the block below 32 MiB.
    constexpr std::size_t mostBytes = (std::size_t { 32 } << 20U) - (std::size_t { 64 } << 10U);
    return bytes < mostBytes ? std::min(3 * bytes, mostBytes) : bytes;
}

QImage vx::kernels::uninitializedImage(const QSize& size, QImage::Format format)
{
    QImage image(size, format);
    if (!image.isNull())
        adviseLargePages(image.bits(), static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}
