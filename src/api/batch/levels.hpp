#pragma once
// The batch entries for the instruction sets that a machine may have.

#include <cstdint>

#include "co2_properties/batch.hpp"
#include "co2_properties/output_set.hpp"

namespace co2_properties {

inline constexpr std::int32_t output_count = sizeof(OutputSet) / sizeof(double*);

/// States that go through an entry together.
inline constexpr std::int32_t block_size = 64;

/// The form of the entries for one state.
using SingleEntry = void (*)(const double&, const double&, std::int32_t&,
                             const OutputSet&) noexcept;

/// All states of one call; the lengths agree.
struct Batch {
  StridedSpan<const double> first;
  StridedSpan<const double> second;
  StridedSpan<std::int32_t> ierr;
  const BatchOutputSet& out;
};

/// The outputs of a batch.
class BlockOutputs {
 public:
  explicit BlockOutputs(const Batch& batch) noexcept;

  /// Room for those of a block.
  [[nodiscard]] const OutputSet& buffers() const noexcept { return buffers_; }
  /// Takes results, if they are in the buffers, and the code to the caller.
  /// \param start  the block's first state in the batch
  /// \param index  of each result in the block, ascending; at least one
  void hand_over(std::size_t start, const std::uint8_t* index, std::int32_t count,
                 std::int32_t code, bool from_buffers) const noexcept;

  /// Those of state `i` of the batch, in the caller's arrays; valid until the next call. If they
  /// all are in a row, those of the next states follow.
  [[nodiscard]] const OutputSet& of_state(std::size_t i) noexcept;
  [[nodiscard]] bool are_in_a_row() const noexcept { return in_a_row_; }

  // It points into itself.
  BlockOutputs(const BlockOutputs&) = delete;
  BlockOutputs& operator=(const BlockOutputs&) = delete;

 private:
  const Batch& batch_;
  OutputSet buffers_;
  OutputSet one_;
  std::int32_t count_ = 0;  ///< of the present outputs
  bool in_a_row_ = true;
  double** slots_[output_count];
  const StridedSpan<double>* arrays_[output_count];
  alignas(64) double values_[output_count][block_size];
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
extern const BatchEntries* const avx2_lanes;    ///< four
extern const BatchEntries* const avx512_lanes;  ///< eight

/// What a machine has, of what these entries can use.
struct InstructionSets {
  bool avx2, avx512f;
};
/// Those of this machine.
[[nodiscard]] InstructionSets instruction_sets() noexcept;

/// Entries, and whether a machine can run them.
struct Level {
  const char* name;
  const BatchEntries* entries;
  bool runs;
};
inline constexpr std::int32_t level_count = 3;
/// All of them, widest last.
struct Levels {
  Level level[level_count];
};
[[nodiscard]] Levels levels(InstructionSets machine) noexcept;

/// The widest entries for a machine.
[[nodiscard]] const BatchEntries& widest_entries(InstructionSets machine) noexcept;

}  // namespace co2_properties
