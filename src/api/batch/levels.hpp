#pragma once
// The batch entries for the instruction sets that a machine may have.

#include <cstdint>

#include "api/entries/output_sets.hpp"
#include "co2_properties/batch.hpp"
#include "co2_properties/saturation_set.hpp"

namespace co2_properties {

inline constexpr std::int32_t output_count = sizeof(OutputSet) / sizeof(double*);
inline constexpr std::int32_t derivative_count = sizeof(DerivativeSet) / sizeof(double*);

/// States that go through an entry together.
inline constexpr std::int32_t block_size = 64;

/// The form of the entries for one state.
using SingleEntry = void (*)(double, double, std::int32_t&, OutputSets) noexcept;

/// All states of one call; the lengths agree.
struct Batch {
  StridedSpan<const double> first;
  StridedSpan<const double> second;
  StridedSpan<std::int32_t> ierr;
  const BatchOutputSet& out;
  const BatchDerivativeSet* derivatives = nullptr;  ///< where they are asked for
};

/// The same for states of saturation.
using SingleSaturation = void (*)(const double&, std::int32_t&, const SaturationSet&) noexcept;
struct SaturationBatch {
  StridedSpan<const double> given;
  StridedSpan<std::int32_t> ierr;
  const BatchSaturationSet& out;
};

/// The outputs of a batch.
class BlockOutputs {
 public:
  explicit BlockOutputs(const Batch& batch) noexcept;

  /// Room for those of a block.
  [[nodiscard]] OutputSets buffers() const noexcept { return buffers_.sets(batch_); }
  /// Takes results, if they are in the buffers, and the code to the caller.
  /// \param start  the block's first state in the batch
  /// \param index  of each result in the block, ascending; at least one
  void hand_over(std::size_t start, const std::uint8_t* index, std::int32_t count,
                 std::int32_t code, bool from_buffers) const noexcept;

  /// Those of state `i` of the batch, in the caller's arrays; valid until the next call. If they
  /// all are in a row, those of the next states follow.
  [[nodiscard]] OutputSets of_state(std::size_t i) noexcept;
  [[nodiscard]] bool are_in_a_row() const noexcept { return in_a_row_; }

  // It points into itself.
  BlockOutputs(const BlockOutputs&) = delete;
  BlockOutputs& operator=(const BlockOutputs&) = delete;

 private:
  struct Both {
    OutputSet state;
    DerivativeSet derivatives;

    [[nodiscard]] OutputSets sets(const Batch& batch) const noexcept {
      return {state, batch.derivatives == nullptr ? nullptr : &derivatives};
    }
  };
  static constexpr std::int32_t most = output_count + derivative_count;

  void take(const StridedSpan<double>& array, double*& buffer, double*& slot) noexcept;

  const Batch& batch_;
  Both buffers_;
  Both one_;
  std::int32_t count_ = 0;  ///< of the present outputs
  bool in_a_row_ = true;
  double** slots_[most];
  const StridedSpan<double>* arrays_[most];
  alignas(64) double values_[most][block_size];
};

/// Each phase of states of saturation as a batch of its own.
struct SaturationPhases {
  Batch liq;
  Batch vap;

  [[nodiscard]] static SaturationPhases of(const SaturationBatch& batch) noexcept;
};

/// The outputs of states of saturation: those of each phase, and the arrays that both share.
class SaturationBlockOutputs {
 public:
  SaturationBlockOutputs(const SaturationBatch& batch, BlockOutputs& liq,
                         BlockOutputs& vap) noexcept
      : batch_(batch), liq_(liq), vap_(vap) {}

  /// As those of `BlockOutputs`.
  [[nodiscard]] SaturationOutputs buffers() noexcept;
  void hand_over(std::size_t start, const std::uint8_t* index, std::int32_t count) const noexcept;
  /// Runs the entry for one state.
  void run_one(SingleSaturation entry, double given, std::size_t i) noexcept;

 private:
  const SaturationBatch& batch_;
  BlockOutputs& liq_;
  BlockOutputs& vap_;
  alignas(64) double latent_heat_[block_size] = {};
  alignas(64) double dpdt_sat_[block_size] = {};
};

/// The entries for one instruction set.
struct BatchEntries {
  using Run = void (*)(const Batch&) noexcept;
  using SaturationRun = void (*)(const SaturationBatch&) noexcept;
  // entries: begin, written by scripts/generate_entries
  Run td, tp, ph, ps, du, dh, ds, dp, hs, pu, ts, tx, px;
  // entries: end
  SaturationRun sat_t, sat_p;
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
