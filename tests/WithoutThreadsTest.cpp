#include "support/Operations.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <pthread.h>
#include <unistd.h>

// In this program the system refuses every thread. Who waits for one waits for ever.
extern "C" int pthread_create(pthread_t* /*thread*/, const pthread_attr_t* /*attributes*/,
    void* (* /*start*/)(void*), void* /*argument*/)
{
    return EAGAIN;
}

// Qt converts images of this size in threads.
TEST(WithoutThreads, everyOperationEnds)
{
    constexpr unsigned mostSeconds = 120;
    alarm(mostSeconds);
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        QImage image(600, 500, static_cast<QImage::Format>(format));
        if (image.pixelFormat().colorModel() == QPixelFormat::Indexed)
            image.setColorTable({ qRgb(1, 2, 3), qRgb(200, 100, 0) });
        image.fill(1);
        for (const support::Operation& operation : support::operations()) {
            // Slow in most formats, and it converts nothing.
            if (operation.name.rfind("VXMaxFilter", 0) != 0)
                operation.run(image);
        }
    }
    alarm(0);
}
