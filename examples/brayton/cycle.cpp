#include "brayton/cycle.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "brayton/search.hpp"

namespace brayton {
namespace {

/// The cycle with a given split fraction. Both recuperators have the pinch of the design; this
/// leaves one unknown, the enthalpy of the hot stream between them: it fixes the low-temperature
/// recuperator, this the recompressor and the mixing point, and these the pinch of the
/// high-temperature recuperator.
class SplitCycle {
 public:
  SplitCycle(const Design& design, const double split) : design_(design) {
    cycle_.split = split;
    auto& at = cycle_.at;
    at[main_in] = state_tp(design.inlet_temp, design.low_pres);
    at[main_out] =
        compress(at[main_in], design.high_pres, design.compressor_efficiency, &at[main_ideal]);
    at[turbine_in] = state_tp(design.turbine_temp, design.high_pres);
    at[turbine_out] =
        expand(at[turbine_in], design.low_pres, design.turbine_efficiency, &at[turbine_ideal]);
  }

  Cycle solve() {
    const auto& at = cycle_.at;
    const double coldest = at[main_out].temp + design_.pinch;
    if (!(coldest < at[turbine_out].temp)) {
      throw Infeasible("the turbine outlet is too cold for recuperators");
    }
    const double from = state_tp(coldest, design_.low_pres).enth;
    const double to = at[turbine_out].enth;
    const auto excess = [this](const double enth) { return high_pinch_excess(enth); };
    if (!(excess(from) < 0.0 && excess(to) > 0.0)) {
      throw Infeasible(
          fmt::format("no cycle with a split fraction of {} has a pinch of {} K in both "
                      "recuperators",
                      cycle_.split, design_.pinch));
    }
    set_enth_between(find_zero(excess, from, to, 1e-9, 1e-9));
    fill_states();
    return cycle_;
  }

 private:
  void set_enth_between(const double enth) {
    auto& [split, at, low, high] = cycle_;
    low = recuperator_with_pinch({design_.low_pres, enth, 1.0},
                                 {design_.high_pres, at[main_out].enth, split}, design_.pinch,
                                 design_.intervals);
    at[low_hot_out] = state_ph(design_.low_pres, low.enth_hot_out());
    at[recomp_out] = compress(at[low_hot_out], design_.high_pres, design_.recompressor_efficiency,
                              &at[recomp_ideal]);
    const double mixed_enth = split * low.enth_cold_out() + (1.0 - split) * at[recomp_out].enth;
    high = {{design_.low_pres, at[turbine_out].enth, 1.0},
            {design_.high_pres, mixed_enth, 1.0},
            at[turbine_out].enth - enth};
  }

  double high_pinch_excess(const double enth) {
    set_enth_between(enth);
    return find_pinch(cycle_.high.profile(design_.intervals)).difference() - design_.pinch;
  }

  void fill_states() {
    auto& [split, at, low, high] = cycle_;
    at[low_cold_out] = state_ph(design_.high_pres, low.enth_cold_out());
    at[mixed] = state_ph(design_.high_pres, high.cold.enth_in);
    at[heater_in] = state_ph(design_.high_pres, high.enth_cold_out());
    at[high_hot_out] = state_ph(design_.low_pres, high.enth_hot_out());
  }

  const Design& design_;
  Cycle cycle_;
};

/// Efficiency, or -1 where there is no such cycle.
double efficiency_with(const Design& design, const double split) {
  try {
    return SplitCycle(design, split).solve().efficiency();
  } catch (const Infeasible&) {
    return -1.0;
  }
}

/// Split fraction of highest efficiency: the best of a coarse grid, then uphill on both sides with
/// ever smaller steps. The maximum is a kink as a rule: on one side of it the pinch of the
/// low-temperature recuperator is at its hot end, on the other inside or at the cold end.
double best_split(const Design& design) {
  double step = 0.05;
  double best = 0.0;
  double highest = -1.0;
  const auto improves = [&](const double split) {
    const double found = split > 0.0 && split <= 1.0 ? efficiency_with(design, split) : -1.0;
    if (!(found > highest)) return false;
    highest = found;
    best = split;
    return true;
  };
  for (int i = 6; i <= 20; ++i) improves(step * i);
  if (highest < 0.0)
    throw Infeasible(
        fmt::format("with no split fraction both recuperators have a pinch of {} K", design.pinch));
  while (step > 1e-7) {
    if (!improves(best + step) && !improves(best - step)) step *= 0.5;
  }
  return best;
}

}  // namespace

State compress(const State& in, const double pres, const double efficiency, State* const ideal) {
  const State end = state_ps(pres, in.entr);
  if (ideal != nullptr) *ideal = end;
  return state_ph(pres, in.enth + (end.enth - in.enth) / efficiency);
}

State expand(const State& in, const double pres, const double efficiency, State* const ideal) {
  const State end = state_ps(pres, in.entr);
  if (ideal != nullptr) *ideal = end;
  return state_ph(pres, in.enth + (end.enth - in.enth) * efficiency);
}

Cycle solve(const Design& design) {
  return SplitCycle(design, design.split ? *design.split : best_split(design)).solve();
}

}  // namespace brayton
