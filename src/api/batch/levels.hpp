#pragma once
// The batch entries for the instruction sets that a machine may have.

#include <cstdint>

#include "co2_properties/batch.hpp"
#include "co2_properties/output_set.hpp"

namespace co2_properties {

inline constexpr std::int32_t output_count = sizeof(OutputSet) / sizeof(double*);

/// All states of one call; the lengths agree.
struct Batch {
  StridedSpan<const double> first;
  StridedSpan<const double> second;
  StridedSpan<std::int32_t> ierr;
  const BatchOutputSet& out;
};

/// The outputs of one state after the other.
class OutputCursor {
 public:
  explicit OutputCursor(const BatchOutputSet& out) noexcept;
  /// Those of state `i`; valid until the next call.
  [[nodiscard]] const OutputSet& at(const std::size_t i) noexcept {
    for (std::int32_t k = 0; k < count_; ++k) *slots_[k] = &(*arrays_[k])[i];
    return one_;
  }

  // It points into itself.
  OutputCursor(const OutputCursor&) = delete;
  OutputCursor& operator=(const OutputCursor&) = delete;

 private:
  OutputSet one_;
  std::int32_t count_ = 0;  ///< of the present outputs
  double** slots_[output_count];
  const StridedSpan<double>* arrays_[output_count];
};

/// The four entries for one instruction set.
struct BatchEntries {
  using Run = void (*)(const Batch&) noexcept;
  Run td, tp, ph, ps;
};

/// One state after the other, on any machine.
extern const BatchEntries one_by_one;

// Several states in the lanes of vectors. None of them uses a fused operation, so that the bits are
// those of `one_by_one`. Null where the compiler does not know the instruction set.
extern const BatchEntries* const four_lanes;   ///< AVX2
extern const BatchEntries* const eight_lanes;  ///< AVX-512F

/// What a machine has, of what these entries can use.
struct InstructionSets {
  bool avx2, avx512f;
};
/// Those of this machine.
[[nodiscard]] InstructionSets instruction_sets() noexcept;

/// The widest entries for a machine.
[[nodiscard]] const BatchEntries& widest_entries(InstructionSets machine) noexcept;

}  // namespace co2_properties
