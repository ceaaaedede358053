#include "WorkerThreads.h"

#include "host/HostError.h"
#include "host/StandardStreams.h"

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

// How many threads, up to \a most, the system lets this process run at the same time.
int availableThreads(int most)
{
    QSemaphore end;
    std::vector<std::thread> threads;
    try {
        while (static_cast<int>(threads.size()) < most)
            threads.emplace_back([&end] { end.acquire(); });
    } catch (const std::system_error&) {
        // The limit is reached.
    }
    end.release(static_cast<int>(threads.size()));
    for (std::thread& thread : threads)
        thread.join();
    return static_cast<int>(threads.size());
}

void ignoreMessage(
    QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
}

} // namespace

int defaultWorkerCount()
{
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void startWorkerThreads(int most)
{
    // A worker needs its own thread and up to three of libvips while it encodes a picture, and the threads of the
    // previous picture may not have ended yet.
    constexpr int threadsOfAWorker = 6;
    const int count = availableThreads(threadsOfAWorker * most) / threadsOfAWorker;
    if (count == 0)
        throw host::threadsRefused();
    constexpr int never = -1;
    QThreadPool* const pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(count);
    pool->setExpiryTimeout(never);
    // Suppresses Qt's message about a thread that it could not start.
    const QtMessageHandler handler = qInstallMessageHandler(ignoreMessage);
    // Each task blocks its thread until all threads have started.
    const auto started = std::make_shared<QSemaphore>();
    const auto end = std::make_shared<QSemaphore>();
    for (int i = 0; i < count; ++i)
        pool->start([started, end] {
            started->release();
            end->acquire();
        });
    constexpr int mostMilliseconds = 5000;
    const bool haveAllStarted = started->tryAcquire(count, mostMilliseconds);
    qInstallMessageHandler(handler);
    if (!haveAllStarted) {
        // Another process has used up the limit meanwhile. A normal exit would hang: the pool waits for its threads.
        host::writeMessage(host::threadsRefused().what());
        std::_Exit(static_cast<int>(host::ExitCode::Internal));
    }
    end->release(count);
}

} // namespace vxroi
