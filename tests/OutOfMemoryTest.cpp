#include "support/Memory.h"
#include "support/Operations.h"
#include "support/TestImages.h"

#include <gtest/gtest.h>

#include <csignal>
#include <new>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned mostSeconds = 60;

// What a process of its own comes to that may take so many bytes more than it has: 0 when the operation gave
// the right image, or a null one, or let std::bad_alloc out.
int outcomeOf(const support::Operation& operation, const QImage& image, double bytesMore)
{
    const QImage right = operation.run(image);
    const pid_t child = fork();
    if (child != 0) {
        int status = 0;
        waitpid(child, &status, 0);
        return status;
    }
    alarm(mostSeconds);
    close(STDERR_FILENO); // Qt says that there is no memory
    rlimit limit {};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = static_cast<rlim_t>(support::addressSpace() + bytesMore);
    setrlimit(RLIMIT_AS, &limit);
    try {
        const QImage result = operation.run(image);
        _exit(result.isNull() || operation.makesNoPixels || result == right ? 0 : 1);
    } catch (const std::bad_alloc&) {
        _exit(0);
    }
}

} // namespace

TEST(OutOfMemory, everyOperationThrowsOrReturns)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer takes address space of its own";
    const QImage noise = support::noise(700, 500, 1);
    for (const QImage::Format format :
        { QImage::Format_ARGB32, QImage::Format_Grayscale8, QImage::Format_Indexed8 }) {
        const QImage image = noise.convertToFormat(format);
        for (const support::Operation& operation : support::operations()) {
            for (const double megabytes :
                { 0.0, 0.5, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 9.0, 14.0, 20.0 })
                ASSERT_EQ(outcomeOf(operation, image, megabytes * 1048576), 0)
                    << operation.name << ", format " << format << ", " << megabytes << " MiB more";
        }
    }
}
