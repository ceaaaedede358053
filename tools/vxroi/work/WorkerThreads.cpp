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
    // Besides its own, a worker needs up to three of libvips while a picture is encoded, and the last ones may
    // not have ended yet.
    constexpr int threadsOfAWorker = 6;
    const int count = threadsToBeHad(threadsOfAWorker * most) / threadsOfAWorker;
    if (count == 0)
        throw host::threadsRefused();
    constexpr int never = -1;
    QThreadPool* const pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(count);
    pool->setExpiryTimeout(never);
    // Qt says which thread it could not start.
    const QtMessageHandler handler = qInstallMessageHandler(ignoreMessage);
    // Each holds its thread until all have one.
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
        // Another process has taken what there was. The pool waits for its threads when a program ends.
        host::writeError(std::string("vxroi: ") + host::threadsRefused().what() + '\n');
        std::_Exit(static_cast<int>(host::ExitCode::Internal));
    }
    end->release(count);
}

} // namespace vxroi
