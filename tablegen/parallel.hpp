#pragma once
// Independent pieces of work on several threads.

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace co2_properties::tablegen {

/// Runs work(0) .. work(count - 1), each once, in no particular order; a call writes only results
/// of its own, so that they do not depend on the number of threads.
template <class Work>
void for_each_index(const std::size_t count, const unsigned threads, const Work& work) {
  std::atomic<std::size_t> next{0};
  const auto run = [&] {
    for (std::size_t k = next++; k < count; k = next++) work(k);
  };
  std::vector<std::jthread> others;
  for (unsigned t = 1; t < threads; ++t) others.emplace_back(run);
  run();
}

/// The same on all cores.
template <class Work>
void on_all_cores(const std::size_t count, const Work& work) {
  for_each_index(count, std::max(1U, std::thread::hardware_concurrency()), work);
}

}  // namespace co2_properties::tablegen
