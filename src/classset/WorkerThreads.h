#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace strutwright {

/// Threads for work that needs none of the program's state, one for each core.
class WorkerThreads {
 public:
  WorkerThreads();
  /// Drops what has not been begun, and waits for what has.
  ~WorkerThreads();
  WorkerThreads(const WorkerThreads&) = delete;
  WorkerThreads& operator=(const WorkerThreads&) = delete;

  std::size_t Count() const { return Threads.size(); }

  /// Has a piece of work done when its turn comes.  What it throws is thrown where its result is taken.
  template <class Result>
  std::future<Result> Do(std::function<Result()> work) {
    const auto task = std::make_shared<std::packaged_task<Result()>>(std::move(work));
    Add([task] { (*task)(); });
    return task->get_future();
  }

 private:
  void Add(std::function<void()> task);
  void Work();

  std::mutex Mutex; ///< of what follows
  std::condition_variable Changed;
  std::deque<std::function<void()>> Waiting;
  bool Ending = false;
  std::vector<std::thread> Threads;
};

} // namespace strutwright
