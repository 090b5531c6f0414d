#pragma once
// Independent pieces of work on several threads.

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace co2_properties::tablegen {

/// Runs work(0) .. work(count - 1), each once, in no particular order; a call writes only results
/// of its own, so that they do not depend on the number of threads. The first exception of a call
/// is thrown on when all threads have ended.
template <class Work>
void for_each_index(const std::size_t count, const unsigned threads, const Work& work) {
  std::atomic<std::size_t> next{0};
  std::exception_ptr failure;
  std::once_flag failed;
  const auto run = [&] {
    try {
      for (std::size_t k = next++; k < count; k = next++) work(k);
    } catch (...) {
      std::call_once(failed, [&failure] { failure = std::current_exception(); });
      next = count;
    }
  };
  {
    std::vector<std::jthread> others;
    for (unsigned t = 1; t < threads; ++t) others.emplace_back(run);
    run();
  }
  if (failure) std::rethrow_exception(failure);
}

/// Threads of a generator.
inline unsigned thread_count = std::max(1U, std::thread::hardware_concurrency());

template <class Work>
void in_parallel(const std::size_t count, const Work& work) {
  for_each_index(count, thread_count, work);
}

}  // namespace co2_properties::tablegen
