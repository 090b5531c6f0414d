#include "numbers/platform.hpp"

#include "co2_properties/batch.hpp"

#include <cstring>
#include <iterator>

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"

namespace co2_properties {
namespace {

using Output = StridedSpan<double>;
using Input = StridedSpan<const double>;
using Codes = StridedSpan<std::int32_t>;

struct OutputPair {
  Output BatchOutputSet::*array;
  double* OutputSet::*value;
};
constexpr OutputPair output_pairs[] = {
    // outputs: begin, written by scripts/generate_outputs
    {&BatchOutputSet::temp, &OutputSet::temp}, {&BatchOutputSet::pres, &OutputSet::pres},
    {&BatchOutputSet::dens, &OutputSet::dens}, {&BatchOutputSet::svol, &OutputSet::svol},
    {&BatchOutputSet::qual, &OutputSet::qual}, {&BatchOutputSet::inte, &OutputSet::inte},
    {&BatchOutputSet::enth, &OutputSet::enth}, {&BatchOutputSet::entr, &OutputSet::entr},
    {&BatchOutputSet::cv, &OutputSet::cv},     {&BatchOutputSet::cp, &OutputSet::cp},
    {&BatchOutputSet::ssnd, &OutputSet::ssnd}, {&BatchOutputSet::visc, &OutputSet::visc},
    {&BatchOutputSet::cond, &OutputSet::cond}, {&BatchOutputSet::dpdd, &OutputSet::dpdd},
    {&BatchOutputSet::dpdt, &OutputSet::dpdt}, {&BatchOutputSet::dhdd, &OutputSet::dhdd},
    {&BatchOutputSet::dhdt, &OutputSet::dhdt}, {&BatchOutputSet::dsdd, &OutputSet::dsdd},
    {&BatchOutputSet::dsdt, &OutputSet::dsdt},
    // outputs: end
};
static_assert(std::size(output_pairs) == output_count);

bool lengths_agree(const Input& first, const Input& second, const Codes& ierr,
                   const BatchOutputSet& out) noexcept {
  bool agree = second.size() == first.size() && ierr.size() == first.size();
  for (const auto& [array, value] : output_pairs) {
    const Output& output = out.*array;
    if (output.data() != nullptr) agree = agree && output.size() == first.size();
  }
  return agree;
}

template <SingleEntry entry>
void run_one_by_one(const Batch& batch) noexcept {
  BlockOutputs outputs(batch);
  for (std::size_t i = 0; i < batch.first.size(); ++i) {
    entry(batch.first[i], batch.second[i], batch.ierr[i], outputs.of_state(i));
  }
}

bool run(const BatchEntries::Run BatchEntries::*const entry, const Batch& batch) noexcept {
  if (!lengths_agree(batch.first, batch.second, batch.ierr, batch.out)) return false;
  (widest_entries(instruction_sets()).*entry)(batch);
  return true;
}

}  // namespace

BlockOutputs::BlockOutputs(const Batch& batch) noexcept : batch_(batch) {
  for (const auto& [array, value] : output_pairs) {
    const Output& output = batch.out.*array;
    if (output.data() == nullptr) continue;
    buffers_.*value = values_[count_];
    slots_[count_] = &(one_.*value);
    arrays_[count_] = &output;
    in_a_row_ = in_a_row_ && output.stride() == 1;
    ++count_;
  }
}

void BlockOutputs::hand_over(const std::size_t start, const std::uint8_t* const index,
                             const std::int32_t count, const std::int32_t code,
                             const bool from_buffers) const noexcept {
  const bool in_a_row = index[count - 1] - index[0] == count - 1;
  for (std::int32_t k = 0; from_buffers && k < count_; ++k) {
    const Output& to = *arrays_[k];
    const double* const from = values_[k];
    if (in_a_row && to.stride() == 1) {
      std::memcpy(&to[start + index[0]], from, static_cast<std::size_t>(count) * sizeof(double));
      continue;
    }
    for (std::int32_t j = 0; j < count; ++j) to[start + index[j]] = from[j];
  }
  if (in_a_row && batch_.ierr.stride() == 1 && code == status::success) {
    std::memset(&batch_.ierr[start + index[0]], 0, static_cast<std::size_t>(count) * sizeof code);
  } else {
    for (std::int32_t j = 0; j < count; ++j) batch_.ierr[start + index[j]] = code;
  }
}

const OutputSet& BlockOutputs::of_state(const std::size_t i) noexcept {
  for (std::int32_t k = 0; k < count_; ++k) *slots_[k] = &(*arrays_[k])[i];
  return one_;
}

constexpr BatchEntries one_by_one = {run_one_by_one<co2_td>, run_one_by_one<co2_tp>,
                                     run_one_by_one<co2_ph>, run_one_by_one<co2_ps>};

InstructionSets instruction_sets() noexcept {
#if defined(__x86_64__) && defined(__GNUC__)
  return {static_cast<bool>(__builtin_cpu_supports("avx2")),
          static_cast<bool>(__builtin_cpu_supports("avx512f"))};
#else
  return {false, false};
#endif
}

Levels levels(const InstructionSets machine) noexcept {
  return {{{"one by one", &one_by_one, true},
           {"AVX2", avx2_lanes, machine.avx2 && avx2_lanes != nullptr},
           {"AVX-512", avx512_lanes, machine.avx512f && avx512_lanes != nullptr}}};
}

const BatchEntries& widest_entries(const InstructionSets machine) noexcept {
  const BatchEntries* widest = &one_by_one;
  for (const Level& level : levels(machine).level) {
    if (level.runs) widest = level.entries;
  }
  return *widest;
}

bool co2_td_batch(const Input temp, const Input dens, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::td, {temp, dens, ierr, out});
}

bool co2_tp_batch(const Input temp, const Input pres, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::tp, {temp, pres, ierr, out});
}

bool co2_ph_batch(const Input pres, const Input enth, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::ph, {pres, enth, ierr, out});
}

bool co2_ps_batch(const Input pres, const Input entr, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::ps, {pres, entr, ierr, out});
}

}  // namespace co2_properties
