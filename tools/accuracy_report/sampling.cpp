#include "accuracy_report/sampling.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>

#include "accuracy_report/cell_edges.hpp"
#include "api/co2_properties.hpp"
#include "fits/near_critical.hpp"
#include "reference/phase_equilibrium.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::accuracy {
namespace {

struct State {
  double temp, dens;
};

constexpr std::array<PhaseDifference, 4> no_differences = {{{301.0}, {304.0}, {304.12}, {t_crit}}};

/// Draws the states of one block.
class Sampler {
 public:
  Sampler(const std::uint64_t seed, const std::uint64_t block) {
    std::seed_seq sequence{seed, block};
    engine_.seed(sequence);
  }

  std::array<PhaseDifference, 4> differences = no_differences;

  StateErrors next(const std::size_t k) {
    for (;;) {
      const State state = candidate(k % 20);
      if (!std::isfinite(state.dens)) continue;  // no equilibrium this close to the critical point
      if (const auto e = measure(state.temp, state.dens)) return *e;
    }
  }

 private:
  double uniform(const double lo, const double hi) {
    constexpr double unit = 0x1p-53;
    return lo + (hi - lo) * unit * static_cast<double>(engine_() >> 11);
  }
  double log_uniform(const double lo, const double hi) {
    return std::exp(uniform(std::log(lo), std::log(hi)));
  }
  double sign() { return uniform(-1.0, 1.0) < 0.0 ? -1.0 : 1.0; }

  State candidate(const std::size_t k) {
    if (k < 4) return {uniform(temp_min, temp_max), uniform(dens_min, 1260.0)};
    if (k < 8) {
      const double temp = log_uniform(temp_min, temp_max);
      return {temp, reference::density(temp, log_uniform(pres_min, pres_max))};
    }
    if (k < 11) return near_saturation(k == 8);
    if (k < 15) return in_random_cell();
    if (k < 18) return in_critical_box();
    return {t_crit + sign() * log_uniform(1e-4, 5.0), d_crit + sign() * log_uniform(1e-2, 110.0)};
  }

  State in_critical_box() {
    return {uniform(near_critical_box.temp_lo, near_critical_box.temp_hi),
            uniform(near_critical_box.dens_lo, near_critical_box.dens_hi)};
  }

  State near_saturation(const bool near_critical) {
    const double temp =
        near_critical ? t_crit - log_uniform(2e-6, 5.0) : uniform(temp_sat_min, t_crit);
    const auto sat = reference::saturation(temp);
    const bool liquid = sign() > 0.0;
    const double saturated = liquid ? sat.dens_liq : sat.dens_vap;
    const double dens = saturated * (1.0 + sign() * log_uniform(1e-7, 1e-1));
    compare_phases({temp, dens}, sat.dens_liq, sat.dens_vap);
    return {temp, dens};
  }

  void compare_phases(const State& state, const double dens_liq, const double dens_vap) {
    std::int32_t ierr = 0;
    double heat = 0.0;
    co2_td(state.temp, state.dens, ierr, {.cv = &heat});
    if (ierr > 0 || !std::isfinite(dens_liq)) return;
    auto* const range =
        std::find_if(differences.begin(), std::prev(differences.end()),
                     [&](const PhaseDifference& d) { return state.temp < d.temp_end; });
    const bool library_single = ierr == status::success;
    const bool reference_single = state.dens <= dens_vap || state.dens >= dens_liq;
    ++range->tried;
    if (library_single == reference_single) return;
    ++(library_single ? range->only_in_library : range->only_in_reference);
    const double distance =
        std::min(std::abs(state.dens / dens_liq - 1.0), std::abs(state.dens / dens_vap - 1.0));
    range->farthest = std::max(range->farthest, distance);
  }

  State in_random_cell() {
    const TableCells& table = all_tables[engine_() % std::size(all_tables)];
    const auto pick = [&](const std::span<const double> edges, const Span& served) {
      for (;;) {
        const Span span = interval_of(edges, engine_() % (edges.size() + 1), served);
        if (span.lo < span.hi) return uniform(span.lo, span.hi);
      }
    };
    const double temp = pick(table.temp_edges(), {table.temp_lo, table.temp_hi});
    return {temp, pick(table.dens_edges(), {table.dens_lo, table.dens_hi})};
  }

  std::mt19937_64 engine_;
};

}  // namespace

Sample draw_sample(const std::size_t count, const std::uint64_t seed, const unsigned threads) {
  constexpr std::size_t block_size = 4000;
  const std::size_t blocks = (count + block_size - 1) / block_size;
  std::vector<std::array<PhaseDifference, 4>> differences(blocks);
  Sample sample{std::vector<StateErrors>(count), no_differences};
  tablegen::for_each_index(blocks, threads, [&](const std::size_t b) {
    Sampler sampler(seed, b);
    const std::size_t end = std::min(count, (b + 1) * block_size);
    for (std::size_t k = b * block_size; k < end; ++k) sample.states[k] = sampler.next(k);
    differences[b] = sampler.differences;
  });
  for (const auto& block : differences) {
    for (std::size_t r = 0; r < block.size(); ++r) {
      PhaseDifference& total = sample.phase_differences[r];
      total.tried += block[r].tried;
      total.only_in_library += block[r].only_in_library;
      total.only_in_reference += block[r].only_in_reference;
      total.farthest = std::max(total.farthest, block[r].farthest);
    }
  }
  return sample;
}

}  // namespace co2_properties::accuracy
