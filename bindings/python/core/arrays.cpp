#include "arrays.hpp"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <numeric>
#include <system_error>
#include <thread>
#include <utility>

namespace co2_properties::python {
namespace {

/// States that go through an entry and what is done before and after it while they are in the
/// caches. A multiple of the library's own blocks.
constexpr std::size_t block_size = 1024;

/// Calls visit(address, i) for the elements start + i of an array, i < n, in the order of its axes.
template <class Visit>
void for_each(const std::vector<std::ptrdiff_t>& shape, const Memory& memory,
              const std::size_t start, const std::size_t n, const Visit& visit) {
  const std::size_t axes = shape.size();
  std::vector<std::ptrdiff_t> index(axes);
  char* at = memory.data;
  auto rest = static_cast<std::ptrdiff_t>(start);
  for (std::size_t axis = axes; axis-- > 0; rest /= shape[axis]) {
    index[axis] = rest % shape[axis];
    at += index[axis] * memory.strides[axis];
  }
  for (std::size_t i = 0; i < n; ++i) {
    visit(at, i);
    for (std::size_t axis = axes; axis-- > 0;) {
      at += memory.strides[axis];
      if (++index[axis] < shape[axis]) break;
      at -= shape[axis] * memory.strides[axis];
      index[axis] = 0;
    }
  }
}

/// The array as one with a single stride, where its strides allow that; else without data.
template <class T>
StridedSpan<T> in_place(const std::vector<std::ptrdiff_t>& shape, const Memory& memory,
                        const std::size_t count) {
  constexpr auto width = static_cast<std::ptrdiff_t>(sizeof(T));
  const std::ptrdiff_t stride = shape.empty() ? width : memory.strides.back();
  std::ptrdiff_t expected = stride;
  bool same =
      stride % width == 0 && reinterpret_cast<std::uintptr_t>(memory.data) % alignof(T) == 0;
  for (std::size_t axis = shape.size(); axis-- > 0; expected *= shape[axis]) {
    same = same && memory.strides[axis] == expected;
  }
  if (!same) return {};
  return {reinterpret_cast<T*>(memory.data), count, stride / width};
}

/// An array of double as the batch entries take it, block after block: in place, or as a copy of
/// the block.
class Blocks {
 public:
  Blocks(const std::vector<std::ptrdiff_t>& shape, const Memory& memory, const std::size_t count)
      : shape_(shape), memory_(memory), whole_(in_place<double>(shape, memory, count)) {
    if (whole_.data() == nullptr) copy_.resize(block_size);
  }

  [[nodiscard]] StridedSpan<double> block(const std::size_t start, const std::size_t n) {
    if (whole_.data() == nullptr) return {copy_.data(), n};
    return {&whole_[start], n, whole_.stride()};
  }
  [[nodiscard]] StridedSpan<double> read(const std::size_t start, const std::size_t n) {
    if (whole_.data() == nullptr) {
      for_each(shape_, memory_, start, n, [&](const char* const at, const std::size_t i) {
        std::memcpy(&copy_[i], at, sizeof(double));
      });
    }
    return block(start, n);
  }
  void write(const std::size_t start, const std::size_t n) const {
    if (whole_.data() != nullptr) return;
    for_each(shape_, memory_, start, n, [&](char* const at, const std::size_t i) {
      std::memcpy(at, &copy_[i], sizeof(double));
    });
  }

 private:
  const std::vector<std::ptrdiff_t>& shape_;
  const Memory& memory_;
  StridedSpan<double> whole_;
  std::vector<double> copy_;
};

/// What there is to tell about a block, and which of its states are in error.
struct Look {
  unsigned found = found_nothing;
  std::size_t errors = 0;
  std::uint16_t error[block_size];

  void at(const StridedSpan<std::int32_t>& codes) noexcept {
    found = found_nothing;
    errors = 0;
    std::int32_t any = 0;
    for (std::size_t i = 0; i < codes.size(); ++i) any |= codes[i];
    if (any == 0) return;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      if (codes[i] > 0) error[errors++] = static_cast<std::uint16_t>(i);
      if (codes[i] < 0 && codes[i] % 100 != -1) found |= found_warning;
    }
    if (errors > 0) found |= found_error;
  }
};

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// For `stride` 1 a constant, so that this is done in vectors.
void put_none_for_zeros(double* const values, const std::size_t n,
                        const std::ptrdiff_t stride) noexcept {
  const auto put = [=](const std::ptrdiff_t step) {
    for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(n); ++i) {
      double& value = values[i * step];
      value = value == 0.0 ? none : value;
    }
  };
  if (stride == 1) {
    put(1);
  } else {
    put(stride);
  }
}

void put_none(const StridedSpan<double>& values, const std::size_t slot,
              const Look& look) noexcept {
  if (slot < of_line && quantities[slot % quantity_count].zero_is_none) {
    put_none_for_zeros(values.data(), values.size(), values.stride());
  }
  for (std::size_t k = 0; k < look.errors; ++k) values[look.error[k]] = none;
}

}  // namespace

States::States(Work work) : work_(std::move(work)) {
  std::vector<std::size_t> axes;
  for (std::size_t axis = 0; axis < work_.shape.size(); ++axis) {
    count_ *= static_cast<std::size_t>(work_.shape[axis]);
    if (work_.shape[axis] != 1) axes.push_back(axis);
  }
  std::stable_sort(axes.begin(), axes.end(), [&](const std::size_t a, const std::size_t b) {
    return std::abs(work_.codes.strides[a]) > std::abs(work_.codes.strides[b]);
  });
  const auto reorder = [&](std::vector<std::ptrdiff_t>& of_axes) {
    std::vector<std::ptrdiff_t> reordered;
    for (const std::size_t axis : axes) reordered.push_back(of_axes[axis]);
    of_axes = std::move(reordered);
  };
  reorder(work_.shape);
  reorder(work_.codes.strides);
  for (Memory& input : work_.inputs) reorder(input.strides);
  for (Work::Result& result : work_.results) reorder(result.memory.strides);
  codes_ = in_place<std::int32_t>(work_.shape, work_.codes, count_);
}

unsigned States::run(const std::size_t begin, const std::size_t end) const {
  std::vector<Blocks> inputs;
  for (const Memory& input : work_.inputs) inputs.emplace_back(work_.shape, input, count_);
  std::vector<Blocks> results;
  for (const Work::Result& result : work_.results) {
    results.emplace_back(work_.shape, result.memory, count_);
  }
  unsigned found = found_nothing;
  ArraySlots slots;
  Look look;
  for (std::size_t start = begin; start < end; start += block_size) {
    const std::size_t n = std::min(block_size, end - start);
    const StridedSpan<double> first = inputs.front().read(start, n);
    const StridedSpan<double> second = inputs.back().read(start, n);
    const StridedSpan<std::int32_t> codes(&codes_[start], n, codes_.stride());
    for (std::size_t k = 0; k < results.size(); ++k) {
      slots[work_.results[k].slot] = results[k].block(start, n);
    }
    work_.batch(first, second, codes, slots);
    look.at(codes);
    for (std::size_t k = 0; k < results.size(); ++k) {
      const std::size_t slot = work_.results[k].slot;
      if (work_.nan_for_none) put_none(slots[slot], slot, look);
      results[k].write(start, n);
    }
    found |= look.found;
  }
  return found;
}

unsigned States::run(const std::size_t begin, const std::size_t end, const unsigned threads) const {
  const std::size_t blocks = (end - begin + block_size - 1) / block_size;
  if (threads < 2 || blocks < 2) return run(begin, end);
  std::atomic<std::size_t> next = 0;
  std::atomic<unsigned> found = found_nothing;
  std::atomic<bool> out_of_memory = false;
  const auto take_blocks = [&]() noexcept {
    try {
      for (std::size_t k = next++; k < blocks; k = next++) {
        const std::size_t start = begin + k * block_size;
        found |= run(start, std::min(start + block_size, end));
      }
    } catch (const std::bad_alloc&) {
      out_of_memory = true;
    }
  };
  std::vector<std::thread> others;
  try {
    while (others.size() + 1 < std::min<std::size_t>(threads, blocks)) {
      others.emplace_back(take_blocks);
    }
  } catch (const std::system_error&) {  // no more threads here: the others do
  }
  take_blocks();
  for (std::thread& other : others) other.join();
  if (out_of_memory) throw std::bad_alloc();
  return found;
}

}  // namespace co2_properties::python
