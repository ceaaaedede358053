#pragma once

#include "WorkerThreads.h"

#include <QSemaphore>
#include <QThreadPool>

#include <chrono>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <utility>

namespace vxroi {

/// Runs tasks on several cores and returns their results in the order in which the tasks were begun. The caller bounds
/// the memory by taking results while isFull().
///
/// Tasks run in Qt's global thread pool. Qt's own scaling uses the same pool, so it starts no threads in addition to
/// the workers.
template <typename Result> class OrderedWork {
public:
    /// \param workers how many tasks run at a time, at least 1.
    /// \param onDone called in the thread of a task when it has ended.
    explicit OrderedWork(
        int workers, std::function<void()> onDone = [] {})
        : mostBegun(static_cast<std::size_t>(workers) * begunPerWorker)
        , announce(std::move(onDone))
    {
        startWorkerThreads(workers);
    }

    /// Waits for all begun tasks. (QThreadPool::waitForDone() would also end the threads.)
    ~OrderedWork() { ended->acquire(begunCount); }
    OrderedWork(const OrderedWork&) = delete;
    OrderedWork& operator=(const OrderedWork&) = delete;

    bool isEmpty() const { return results.empty(); }

    /// Whether a result should be taken before another task is begun.
    bool isFull() const { return results.size() >= mostBegun; }

    /// Whether the result of the task that was begun first can be taken without waiting. \pre !isEmpty()
    bool isFirstDone() const
    {
        return results.front().wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }

    void begin(std::function<Result()> task)
    {
        const auto packaged = std::make_shared<std::packaged_task<Result()>>(std::move(task));
        results.push_back(packaged->get_future());
        ++begunCount;
        QThreadPool::globalInstance()->start([packaged, announce = announce, ended = ended] {
            (*packaged)();
            announce();
            ended->release();
        });
    }

    /// Waits for the result of the task that was begun first, and takes it. \pre !isEmpty()
    Result finishFirst()
    {
        Result result = results.front().get();
        results.pop_front();
        return result;
    }

private:
    // Enough that workers have work while the first task in the queue is still running.
    static constexpr std::size_t begunPerWorker = 4;

    std::size_t mostBegun;
    std::function<void()> announce;
    int begunCount = 0;
    std::shared_ptr<QSemaphore> ended = std::make_shared<QSemaphore>();
    std::deque<std::future<Result>> results;
};

} // namespace vxroi
