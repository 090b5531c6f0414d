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

template <class BatchSet, class Set>
struct Pair {
  Output BatchSet::*array;
  double* Set::*value;
};
constexpr Pair<BatchOutputSet, OutputSet> output_pairs[] = {
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
constexpr Pair<BatchDerivativeSet, DerivativeSet> derivative_pairs[] = {
    // derivatives: begin, written by scripts/generate_outputs
    {&BatchDerivativeSet::dpdd_u, &DerivativeSet::dpdd_u},
    {&BatchDerivativeSet::dpdu_d, &DerivativeSet::dpdu_d},
    {&BatchDerivativeSet::dtdd_u, &DerivativeSet::dtdd_u},
    {&BatchDerivativeSet::dtdu_d, &DerivativeSet::dtdu_d},
    {&BatchDerivativeSet::dddp_h, &DerivativeSet::dddp_h},
    {&BatchDerivativeSet::dddh_p, &DerivativeSet::dddh_p},
    {&BatchDerivativeSet::dtdp_h, &DerivativeSet::dtdp_h},
    {&BatchDerivativeSet::dtdh_p, &DerivativeSet::dtdh_p},
    {&BatchDerivativeSet::dddp_s, &DerivativeSet::dddp_s},
    {&BatchDerivativeSet::dtdp_s, &DerivativeSet::dtdp_s},
    {&BatchDerivativeSet::dhdd_p, &DerivativeSet::dhdd_p},
    {&BatchDerivativeSet::dhdp_d, &DerivativeSet::dhdp_d},
    {&BatchDerivativeSet::dsdd_p, &DerivativeSet::dsdd_p},
    {&BatchDerivativeSet::dsdp_d, &DerivativeSet::dsdp_d},
    {&BatchDerivativeSet::dpdd_t, &DerivativeSet::dpdd_t},
    {&BatchDerivativeSet::dpdt_d, &DerivativeSet::dpdt_d},
    {&BatchDerivativeSet::cv_eq, &DerivativeSet::cv_eq},
    {&BatchDerivativeSet::ssnd_eq, &DerivativeSet::ssnd_eq},
    {&BatchDerivativeSet::compr_s, &DerivativeSet::compr_s},
    {&BatchDerivativeSet::compr_t, &DerivativeSet::compr_t},
    {&BatchDerivativeSet::expan_p, &DerivativeSet::expan_p},
    {&BatchDerivativeSet::fundam, &DerivativeSet::fundam},
    {&BatchDerivativeSet::dssnddd_t, &DerivativeSet::dssnddd_t},
    {&BatchDerivativeSet::dssnddt_d, &DerivativeSet::dssnddt_d},
    {&BatchDerivativeSet::dviscdd_t, &DerivativeSet::dviscdd_t},
    {&BatchDerivativeSet::dviscdt_d, &DerivativeSet::dviscdt_d},
    {&BatchDerivativeSet::dconddd_t, &DerivativeSet::dconddd_t},
    {&BatchDerivativeSet::dconddt_d, &DerivativeSet::dconddt_d},
    {&BatchDerivativeSet::dqualdd_t, &DerivativeSet::dqualdd_t},
    {&BatchDerivativeSet::dqualdt_d, &DerivativeSet::dqualdt_d},
    // derivatives: end
};
static_assert(std::size(derivative_pairs) == derivative_count);

bool length_agrees(const Output& output, const std::size_t size) noexcept {
  return output.data() == nullptr || output.size() == size;
}

bool lengths_agree(const Batch& batch) noexcept {
  const std::size_t size = batch.first.size();
  bool agree = batch.second.size() == size && batch.ierr.size() == size;
  const auto look_at = [&](const Output& output) { agree = agree && length_agrees(output, size); };
  for (const auto& [array, value] : output_pairs) look_at(batch.out.*array);
  if (batch.derivatives == nullptr) return agree;
  for (const auto& [array, value] : derivative_pairs) look_at(batch.derivatives->*array);
  return agree;
}

template <SingleEntry entry>
void run_one_by_one(const Batch& batch) noexcept {
  BlockOutputs outputs(batch);
  for (std::size_t i = 0; i < batch.first.size(); ++i) {
    entry(batch.first[i], batch.second[i], batch.ierr[i], outputs.of_state(i));
  }
}

template <SingleSaturation entry>
void run_saturation_one_by_one(const SaturationBatch& batch) noexcept {
  const SaturationPhases phases = SaturationPhases::of(batch);
  BlockOutputs liq(phases.liq);
  BlockOutputs vap(phases.vap);
  SaturationBlockOutputs outputs(batch, liq, vap);
  for (std::size_t i = 0; i < batch.given.size(); ++i) outputs.run_one(entry, batch.given[i], i);
}

bool run(const BatchEntries::SaturationRun BatchEntries::*const entry,
         const SaturationBatch& batch) noexcept {
  const BatchSaturationSet& out = batch.out;
  const std::size_t size = batch.given.size();
  const SaturationPhases phases = SaturationPhases::of(batch);
  if (!lengths_agree(phases.liq) || !lengths_agree(phases.vap) ||
      !length_agrees(out.latent_heat, size) || !length_agrees(out.dpdt_sat, size)) {
    return false;
  }
  (widest_entries(instruction_sets()).*entry)(batch);
  return true;
}

bool run(const BatchEntries::Run BatchEntries::*const entry, const Batch& batch) noexcept {
  if (!lengths_agree(batch)) return false;
  (widest_entries(instruction_sets()).*entry)(batch);
  return true;
}

}  // namespace

BlockOutputs::BlockOutputs(const Batch& batch) noexcept : batch_(batch) {
  for (const auto& [array, value] : output_pairs) {
    take(batch.out.*array, buffers_.state.*value, one_.state.*value);
  }
  if (batch.derivatives == nullptr) return;
  for (const auto& [array, value] : derivative_pairs) {
    take(batch.derivatives->*array, buffers_.derivatives.*value, one_.derivatives.*value);
  }
}

void BlockOutputs::take(const Output& array, double*& buffer, double*& slot) noexcept {
  if (array.data() == nullptr) return;
  buffer = values_[count_];
  slots_[count_] = &slot;
  arrays_[count_] = &array;
  in_a_row_ = in_a_row_ && array.stride() == 1;
  ++count_;
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

OutputSets BlockOutputs::of_state(const std::size_t i) noexcept {
  for (std::int32_t k = 0; k < count_; ++k) *slots_[k] = &(*arrays_[k])[i];
  return one_.sets(batch_);
}

SaturationPhases SaturationPhases::of(const SaturationBatch& batch) noexcept {
  const auto phase = [&](const BatchOutputSet& out, const BatchDerivativeSet* const derivatives) {
    return Batch{batch.given, batch.given, batch.ierr, out, derivatives};
  };
  return {phase(batch.out.liq, batch.out.liq_derivatives),
          phase(batch.out.vap, batch.out.vap_derivatives)};
}

SaturationOutputs SaturationBlockOutputs::buffers() noexcept {
  const auto buffer = [](const Output& array, double* const values) {
    return array.data() == nullptr ? nullptr : values;
  };
  return {liq_.buffers(), vap_.buffers(), buffer(batch_.out.latent_heat, latent_heat_),
          buffer(batch_.out.dpdt_sat, dpdt_sat_)};
}

void SaturationBlockOutputs::hand_over(const std::size_t start, const std::uint8_t* const index,
                                       const std::int32_t count) const noexcept {
  liq_.hand_over(start, index, count, status::success, true);
  vap_.hand_over(start, index, count, status::success, true);
  const auto scatter = [&](const Output& to, const double* const from) {
    for (std::int32_t j = 0; to.data() != nullptr && j < count; ++j) to[start + index[j]] = from[j];
  };
  scatter(batch_.out.latent_heat, latent_heat_);
  scatter(batch_.out.dpdt_sat, dpdt_sat_);
}

void SaturationBlockOutputs::run_one(const SingleSaturation entry, const double given,
                                     const std::size_t i) noexcept {
  const auto slot = [&](const Output& array) {
    return array.data() == nullptr ? nullptr : &array[i];
  };
  const OutputSets liq = liq_.of_state(i);
  const OutputSets vap = vap_.of_state(i);
  entry(given, batch_.ierr[i],
        {liq.state, vap.state, slot(batch_.out.latent_heat), slot(batch_.out.dpdt_sat),
         liq.derivatives, vap.derivatives});
}

// entries: begin, written by scripts/generate_entries
constexpr BatchEntries one_by_one = {.td = run_one_by_one<co2_td>,
                                     .tp = run_one_by_one<co2_tp>,
                                     .ph = run_one_by_one<co2_ph>,
                                     .ps = run_one_by_one<co2_ps>,
                                     .du = run_one_by_one<co2_du>,
                                     .dh = run_one_by_one<co2_dh>,
                                     .ds = run_one_by_one<co2_ds>,
                                     .dp = run_one_by_one<co2_dp>,
                                     .hs = run_one_by_one<co2_hs>,
                                     .pu = run_one_by_one<co2_pu>,
                                     .ts = run_one_by_one<co2_ts>,
                                     .tx = run_one_by_one<co2_tx>,
                                     .px = run_one_by_one<co2_px>,
                                     .sat_t = run_saturation_one_by_one<co2_sat_t>,
                                     .sat_p = run_saturation_one_by_one<co2_sat_p>};
// entries: end

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

// entries: begin, written by scripts/generate_entries

bool co2_td_batch(const Input temp, const Input dens, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::td, {temp, dens, ierr, out});
}
bool co2_td_batch(const Input temp, const Input dens, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::td, {temp, dens, ierr, out, &derivatives});
}

bool co2_tp_batch(const Input temp, const Input pres, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::tp, {temp, pres, ierr, out});
}
bool co2_tp_batch(const Input temp, const Input pres, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::tp, {temp, pres, ierr, out, &derivatives});
}

bool co2_ph_batch(const Input pres, const Input enth, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::ph, {pres, enth, ierr, out});
}
bool co2_ph_batch(const Input pres, const Input enth, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::ph, {pres, enth, ierr, out, &derivatives});
}

bool co2_ps_batch(const Input pres, const Input entr, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::ps, {pres, entr, ierr, out});
}
bool co2_ps_batch(const Input pres, const Input entr, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::ps, {pres, entr, ierr, out, &derivatives});
}

bool co2_du_batch(const Input dens, const Input inte, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::du, {dens, inte, ierr, out});
}
bool co2_du_batch(const Input dens, const Input inte, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::du, {dens, inte, ierr, out, &derivatives});
}

bool co2_dh_batch(const Input dens, const Input enth, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::dh, {dens, enth, ierr, out});
}
bool co2_dh_batch(const Input dens, const Input enth, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::dh, {dens, enth, ierr, out, &derivatives});
}

bool co2_ds_batch(const Input dens, const Input entr, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::ds, {dens, entr, ierr, out});
}
bool co2_ds_batch(const Input dens, const Input entr, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::ds, {dens, entr, ierr, out, &derivatives});
}

bool co2_dp_batch(const Input dens, const Input pres, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::dp, {dens, pres, ierr, out});
}
bool co2_dp_batch(const Input dens, const Input pres, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::dp, {dens, pres, ierr, out, &derivatives});
}

bool co2_hs_batch(const Input enth, const Input entr, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::hs, {enth, entr, ierr, out});
}
bool co2_hs_batch(const Input enth, const Input entr, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::hs, {enth, entr, ierr, out, &derivatives});
}

bool co2_pu_batch(const Input pres, const Input inte, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::pu, {pres, inte, ierr, out});
}
bool co2_pu_batch(const Input pres, const Input inte, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::pu, {pres, inte, ierr, out, &derivatives});
}

bool co2_ts_batch(const Input temp, const Input entr, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::ts, {temp, entr, ierr, out});
}
bool co2_ts_batch(const Input temp, const Input entr, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::ts, {temp, entr, ierr, out, &derivatives});
}

bool co2_tx_batch(const Input temp, const Input qual, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::tx, {temp, qual, ierr, out});
}
bool co2_tx_batch(const Input temp, const Input qual, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::tx, {temp, qual, ierr, out, &derivatives});
}

bool co2_px_batch(const Input pres, const Input qual, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(&BatchEntries::px, {pres, qual, ierr, out});
}
bool co2_px_batch(const Input pres, const Input qual, const Codes ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept {
  return run(&BatchEntries::px, {pres, qual, ierr, out, &derivatives});
}
// entries: end

bool co2_sat_t_batch(const Input temp, const Codes ierr, const BatchSaturationSet& out) noexcept {
  return run(&BatchEntries::sat_t, {temp, ierr, out});
}

bool co2_sat_p_batch(const Input pres, const Codes ierr, const BatchSaturationSet& out) noexcept {
  return run(&BatchEntries::sat_p, {pres, ierr, out});
}

}  // namespace co2_properties
