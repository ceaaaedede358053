#include "WorkerThreads.h"

#include "host/CodecMessages.h"
#include "host/HostError.h"

#include <QImageReader>
#include <QSemaphore>
#include <QThreadPool>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

namespace vxroi {

namespace {

// How many threads the system lets this process have beside each other.
int threadsToBeHad(int most)
{
    QSemaphore end;
    std::vector<std::thread> threads;
    try {
        while (static_cast<int>(threads.size()) < most)
            threads.emplace_back([&end] { end.acquire(); });
    } catch (const std::system_error&) {
        // These are all.
    }
    end.release(static_cast<int>(threads.size()));
    for (std::thread& thread : threads)
        thread.join();
    return static_cast<int>(threads.size());
}

host::HostError refusal()
{
    return host::HostError(host::ExitCode::Internal, QStringLiteral("threads"),
        QStringLiteral("the system refuses to start them"),
        QStringLiteral("allow more processes and more memory, see ulimit -u and ulimit -v"));
}

} // namespace

int defaultWorkerCount()
{
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void startWorkerThreads(int most)
{
    // Qt leaves a mutex locked when it finds no memory while it loads its plugins: so let that be here.
    QImageReader::supportedImageFormats();
    const int count = threadsToBeHad(most);
    if (count == 0)
        throw refusal();
    constexpr int never = -1;
    QThreadPool* const pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(count);
    pool->setExpiryTimeout(never);
    const host::CodecMessages silence; // Qt says which thread it could not start
    // Each holds its thread until all have one.
    const auto started = std::make_shared<QSemaphore>();
    const auto end = std::make_shared<QSemaphore>();
    for (int i = 0; i < count; ++i)
        pool->start([started, end] {
            started->release();
            end->acquire();
        });
    constexpr int mostMilliseconds = 5000;
    if (!started->tryAcquire(count, mostMilliseconds)) {
        // Another process has taken what there was. The pool waits for its threads when a program ends.
        host::writeError(std::string("vxroi: ") + refusal().what() + '\n');
        std::_Exit(static_cast<int>(host::ExitCode::Internal));
    }
    end->release(count);
}

} // namespace vxroi
