#pragma once
// Arrays of any shape and strides through the batch entries, block by block.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "entries.hpp"

namespace co2_properties::python {

/// The memory of an array: element (i, j, ...) is at data + i * strides[0] + j * strides[1] + ...
struct Memory {
  char* data = nullptr;
  std::vector<std::ptrdiff_t> strides;  ///< bytes
};

/// What a look at the codes has found.
enum Found : unsigned {
  found_nothing = 0,
  found_error = 1,
  found_warning = 2,  ///< other than that an output has no value in two phases
};

/// A call for arrays that all have the same shape.
struct Work {
  Batch batch;
  std::vector<std::ptrdiff_t> shape;
  std::vector<Memory> inputs;  ///< one or two, of double
  Memory codes;                ///< of int32, contiguous in some order of the axes
  struct Result {
    std::size_t slot;
    Memory memory;
  };
  std::vector<Result> results;  ///< of double
  bool nan_for_none;            ///< where a value does not exist, in place of the library's zero
};

/// States are taken in the order in which the codes lie in memory.
class States {
 public:
  explicit States(Work work);

  [[nodiscard]] std::size_t count() const noexcept { return count_; }
  /// Whether this can be run.
  [[nodiscard]] bool codes_are_dense() const noexcept {
    return count_ == 0 || codes_.data() != nullptr;
  }
  /// Runs the states from `begin` to `end`, a range that no other thread runs.
  /// \return the `Found` of its codes
  [[nodiscard]] unsigned run(std::size_t begin, std::size_t end) const;
  /// The same with so many threads, one of them this one.
  [[nodiscard]] unsigned run(std::size_t begin, std::size_t end, unsigned threads) const;

 private:
  Work work_;
  std::size_t count_ = 1;
  StridedSpan<std::int32_t> codes_;
};

}  // namespace co2_properties::python
