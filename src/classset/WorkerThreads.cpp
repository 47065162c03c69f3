#include "WorkerThreads.h"

#include <algorithm>

namespace strutwright {

WorkerThreads::WorkerThreads() {
  const unsigned count = std::max(1U, std::thread::hardware_concurrency());
  for (unsigned thread = 0; thread < count; ++thread) Threads.emplace_back([this] { Work(); });
}

WorkerThreads::~WorkerThreads() {
  {
    const std::lock_guard lock(Mutex);
    Waiting.clear();
    Ending = true;
  }
  Changed.notify_all();
  for (std::thread& thread : Threads) thread.join();
}

void WorkerThreads::Add(std::function<void()> task) {
  {
    const std::lock_guard lock(Mutex);
    Waiting.push_back(std::move(task));
  }
  Changed.notify_one();
}

void WorkerThreads::Work() {
  for (;;) {
    std::unique_lock lock(Mutex);
    Changed.wait(lock, [this] { return Ending || !Waiting.empty(); });
    if (Ending) return;
    const std::function<void()> task = std::move(Waiting.front());
    Waiting.pop_front();
    lock.unlock();
    task();
  }
}

} // namespace strutwright
