#include "numbers/platform.hpp"

#include "co2_properties/batch.hpp"

#include <iterator>

#include "api/batch/levels.hpp"
#include "api/co2_properties.hpp"
#include "api/entries/places.hpp"

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

template <auto entry>
void run_one_by_one(const Batch& batch) noexcept {
  OutputCursor outputs(batch.out);
  for (std::size_t i = 0; i < batch.first.size(); ++i) {
    entry(batch.first[i], batch.second[i], batch.ierr[i], outputs.at(i));
  }
}

bool run(const BatchEntries::Run BatchEntries::*const entry, const Batch& batch) noexcept {
  if (!lengths_agree(batch.first, batch.second, batch.ierr, batch.out)) return false;
  (widest_entries(instruction_sets()).*entry)(batch);
  return true;
}

}  // namespace

OutputCursor::OutputCursor(const BatchOutputSet& out) noexcept {
  for (const auto& [array, value] : output_pairs) {
    if ((out.*array).data() == nullptr) continue;
    slots_[count_] = &(one_.*value);
    arrays_[count_] = &(out.*array);
    ++count_;
  }
}

constexpr BatchEntries one_by_one = {
    run_one_by_one<SingleEntry{co2_td}>, run_one_by_one<SingleEntry{co2_tp}>,
    run_one_by_one<SingleEntry{co2_ph}>, run_one_by_one<SingleEntry{co2_ps}>};

InstructionSets instruction_sets() noexcept {
#if defined(__x86_64__) && defined(__GNUC__)
  return {static_cast<bool>(__builtin_cpu_supports("avx2")),
          static_cast<bool>(__builtin_cpu_supports("avx512f"))};
#else
  return {false, false};
#endif
}

const BatchEntries& widest_entries(const InstructionSets machine) noexcept {
  if (machine.avx512f && eight_lanes != nullptr) return *eight_lanes;
  if (machine.avx2 && four_lanes != nullptr) return *four_lanes;
  return one_by_one;
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
