#include "ImageMemory.h"

#include <climits>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

void vx::kernels::adviseLargePages(void* memory, std::size_t bytes)
{
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    constexpr std::size_t leastBytes = std::size_t { 16 } << 20U;
    if (bytes < leastBytes)
        return;
    // Advice is for whole pages. Where it is ignored, small pages back the memory as usual.
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t skipped = page - reinterpret_cast<std::size_t>(memory) % page;
    madvise(static_cast<char*>(memory) + skipped, (bytes - skipped) / page * page, MADV_HUGEPAGE);
#else
    static_cast<void>(memory);
    static_cast<void>(bytes);
#endif
}

QImage vx::kernels::uninitializedImage(const QSize& size, QImage::Format format)
{
    const int depth = format == QImage::Format_Grayscale8 ? 8 : 32;
    QImage image = held(QImage(size, format), size, depth);
    if (!image.isNull())
        adviseLargePages(image.bits(), static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}

QImage vx::kernels::held(QImage image, const QSize& size, int depth)
{
    // Qt counts the bits of a row, rounded up to whole words, in an int.
    const bool isPossible = !size.isEmpty() && size.width() <= (INT_MAX - 31) / depth;
    if (image.isNull() && isPossible)
        throw std::bad_alloc();
    return image;
}
