// Batch entries with `lane_count` states side by side, for the source files that define this number
// and the instruction set (avx2.cpp, avx512.cpp). No #pragma once: everything here belongs to the
// one file that includes it, and nothing of it may be shared with another.
//
// States are taken one by one up to the element that holds them or starts their iteration. Those
// that take the common road are collected until all lanes are filled, and evaluated together. All
// others (errors, two phases, iterations that leave their element or take long) and what is left at
// the end go to the entry for one state, which does the same operations on the same numbers.
//
// Nothing here throws, but only the outermost functions are noexcept: inlined into each other,
// noexcept functions would leave a reference to the C++ run-time library behind.

namespace co2_properties {
namespace {

// ---- Lanes -------------------------------------------------------------------------------------

using Lanes = double __attribute__((vector_size(lane_count * sizeof(double))));
using LaneMask = std::int64_t __attribute__((vector_size(lane_count * sizeof(double))));

template <class Get, std::size_t... lane>
[[gnu::always_inline]] inline Lanes gather(const Get& get, std::index_sequence<lane...>) {
  return Lanes{get(lane)...};
}
/// The numbers get(0), get(1), ...
template <class Get>
[[gnu::always_inline]] inline Lanes gather(const Get& get) {
  return gather(get, std::make_index_sequence<lane_count>());
}

inline Lanes absolute(const Lanes x) { return x < 0.0 ? -x : x; }

inline bool any(const LaneMask mask) {
  std::int64_t all = 0;
  for (std::size_t k = 0; k < lane_count; ++k) all |= mask[k];
  return all != 0;
}

/// Logarithms of the C library, one by one: those of the entries for one state.
inline Lanes logarithm(const Lanes x) {
  double log[lane_count];
  for (std::size_t k = 0; k < lane_count; ++k) log[k] = std::log(x[k]);
  return gather([&](const std::size_t k) { return log[k]; });
}

// ---- Evaluation --------------------------------------------------------------------------------

struct LaneDerivatives {
  Lanes a, a_t, a_d, a_tt, a_dd, a_td;
};

/// Sums over temperature of an element for each lane.
struct LaneIsotherm {
  Lanes dens0;
  Lanes f[dens_terms], f_t[dens_terms], half_f_tt[dens_terms];
};

inline LaneIsotherm lane_isotherm(const Element* const (&cells)[lane_count], const Lanes temp) {
  Lanes coef[temp_terms][dens_terms];
  for (std::int32_t i = 0; i < temp_terms; ++i) {
    for (std::int32_t j = 0; j < dens_terms; j += 2) {
      const auto pair_of = [&](const std::size_t k) { return &cells[k]->coef[i][j]; };
      gather_pairs(pair_of, coef[i][j], coef[i][j + 1]);
    }
  }
  const Lanes temp0 = gather([&](const std::size_t k) { return cells[k]->temp0; });
  LaneIsotherm at;
  at.dens0 = gather([&](const std::size_t k) { return cells[k]->dens0; });
  sum_powers<dens_terms, Lanes>(coef, temp - temp0, at);
  return at;
}

inline LaneDerivatives evaluate_lanes(const LaneIsotherm& at, const Lanes dens,
                                      const Lanes log_dens) {
  const auto& [dens0, f, f_t, half_f_tt] = at;
  const Lanes delta = dens - dens0;
  const Lanes inverse = 1.0 / dens;
  return {sum_density(f, delta, log_dens),
          sum_density(f_t, delta, log_dens),
          f[0] / dens + sum_slopes(f, delta),
          2.0 * sum_density(half_f_tt, delta, log_dens),
          -f[0] * inverse * inverse + sum_curvatures(f, delta),
          f_t[0] * inverse + sum_slopes(f_t, delta)};
}

// ---- Outputs -----------------------------------------------------------------------------------

/// The states in the lanes. Temperature and density are given or start values.
struct LaneStates {
  std::size_t index[lane_count];  ///< in the batch
  const Element* cell[lane_count];
  double temp[lane_count];
  double dens[lane_count];
  double pres[lane_count];
  double caloric[lane_count];
};

inline Lanes load(const double (&values)[lane_count]) {
  return gather([&](const std::size_t k) { return values[k]; });
}

/// Writes what `write_single_phase` writes, lane by lane where `wanted` is not 0.
inline void write_lanes(const Batch& batch, const LaneStates& states, const LaneMask wanted,
                        const LaneDerivatives& d, const Lanes temp, const Lanes dens,
                        const Lanes mark_pres) {
  const BatchOutputSet& out = batch.out;
  const bool in_a_row = !any(~wanted) && states.index[lane_count - 1] - states.index[0] ==
                                             static_cast<std::size_t>(lane_count - 1);
  const auto put = [&](const StridedSpan<double>& output, const auto& lanes) {
    if (output.data() == nullptr) return;
    const Lanes values = lanes();
    if (in_a_row && output.stride() == 1) {
      std::memcpy(&output[states.index[0]], &values, sizeof values);
      return;
    }
    for (std::size_t k = 0; k < lane_count; ++k) {
      if (wanted[k] != 0) output[states.index[k]] = values[k];
    }
  };
  // Properties that have a value of their own for single states.
  const auto put_each = [&](const StridedSpan<double>& output, const auto& value) {
    if (output.data() == nullptr) return;
    for (std::size_t k = 0; k < lane_count; ++k) {
      if (wanted[k] != 0) value(k, output[states.index[k]]);
    }
  };
  const bool some_near_critical =
      any((temp > near_critical_box.temp_lo) & (temp < near_critical_box.temp_hi));
  const auto put_near_critical = [&](const StridedSpan<double>& output, const CriticalBox& box,
                                     const auto& fit) {
    if (!some_near_critical) return;
    put_each(output, [&](const std::size_t k, double& value) {
      if (box.contains(temp[k], dens[k])) fit(dens[k], temp[k], value);
    });
  };
  for (std::size_t k = 0; k < lane_count; ++k) {
    if (wanted[k] != 0) batch.ierr[states.index[k]] = status::success;
  }
  put(out.temp, [&]() { return temp; });
  put(out.pres, [&]() { return pressure(d, dens); });
  put(out.dens, [&]() { return dens; });
  put(out.svol, [&]() { return 1.0 / dens; });
  put_each(out.qual, [&](const std::size_t k, double& value) {
    value = single_phase_quality(temp[k], dens[k], mark_pres[k], SaturatedDensities{});
  });
  put(out.inte, [&]() { return internal_energy(d, temp); });
  put(out.enth, [&]() { return enthalpy(d, temp, dens); });
  put(out.entr, [&]() { return entropy(d); });
  put(out.cv, [&]() { return isochoric_heat_capacity(d, temp); });
  put_near_critical(out.cv, near_critical_box, calculate_cv);
  put(out.cp, [&]() { return isobaric_heat_capacity(d, temp, dens); });
  put_near_critical(out.cp, near_critical_box_for_cp, calculate_cp);
  put(out.ssnd, [&]() {
    // What is not written may be negative, and hosts may trap its root.
    Lanes square = wanted ? speed_of_sound_squared(d, dens) : Lanes{};
    for (std::size_t k = 0; some_near_critical && k < lane_count; ++k) {
      if (near_critical_box.contains(temp[k], dens[k])) square[k] = 0.0;
    }
    return lane_root(square);
  });
  put_near_critical(out.ssnd, near_critical_box, calculate_ssnd);
  put_each(out.visc,
           [&](const std::size_t k, double& value) { calculate_visc(dens[k], temp[k], value); });
  put_each(out.cond,
           [&](const std::size_t k, double& value) { calculate_cond(dens[k], temp[k], value); });
  put(out.dpdd, [&]() { return dpdd(d, dens); });
  put(out.dpdt, [&]() { return dpdt(d, dens); });
  put(out.dhdd, [&]() { return dhdd(d, temp, dens); });
  put(out.dhdt, [&]() { return dhdt(d, temp, dens); });
  put(out.dsdd, [&]() { return dsdd(d); });
  put(out.dsdt, [&]() { return dsdt(d); });
}

// ---- Entries -----------------------------------------------------------------------------------
//
// Each gives
//   single                            the entry for one state, in two parts:
//   place(first, second)              its tests of the inputs and where it starts
//   finish(place, first, second, ..)  the rest of it
//   take(place, first, second, ..)    puts the state into a lane; whether it takes the common road
//   evaluate(batch, states)           writes all lanes but those for which it returns true

/// Temperature and density.
struct TdLanes {
  static constexpr SingleEntry single = co2_td;

  static constexpr auto place = place_td;
  static constexpr auto finish = finish_td;

  static bool take(const TdPlace& place, const double temp, const double dens, LaneStates& states,
                   const std::size_t k) {
    // NaN and infinity do not take part: what comes out of them may differ in the sign.
    if (place.code != status::success || place.element == 0 || !(temp < 1e4 && dens < 1e4)) {
      return false;
    }
    states.cell[k] = &element(place.element);
    states.temp[k] = temp;
    states.dens[k] = dens;
    return true;
  }

  [[gnu::noinline]] static LaneMask evaluate(const Batch& batch, LaneStates& states) {
    const Lanes temp = load(states.temp);
    const Lanes dens = load(states.dens);
    const LaneIsotherm at = lane_isotherm(states.cell, temp);
    const LaneDerivatives d = evaluate_lanes(at, dens, logarithm(dens));
    const Lanes pres = pressure(d, dens);
    const Lanes width = gather([&](const std::size_t k) { return states.cell[k]->dens_width; });
    const LaneMask within =
        (pres >= pres_min) & (pres <= pres_max) & ~is_beyond(dens - at.dens0, width);
    write_lanes(batch, states, within, d, temp, dens, pres);
    return ~within;
  }
};

/// Temperature and pressure.
struct TpLanes {
  static constexpr SingleEntry single = co2_tp;

  static constexpr auto place = place_tp;
  static constexpr auto finish = finish_tp;

  static bool take(const TpPlace& place, const double temp, const double pres, LaneStates& states,
                   const std::size_t k) {
    if (place.code != status::success || !(temp < 1e4 && pres < 1e6)) return false;
    states.cell[k] = &element(place.element);
    states.temp[k] = temp;
    states.pres[k] = pres;
    return true;
  }

  /// `solve_density` as long as no iterate leaves its element.
  [[gnu::noinline]] static LaneMask evaluate(const Batch& batch, LaneStates& states) {
    constexpr int most_steps = 6;
    const Lanes temp = load(states.temp);
    const Lanes pres = load(states.pres);
    const LaneIsotherm at = lane_isotherm(states.cell, temp);
    const auto curve = PressureCurve<Lanes>::from(at.dens0, at.f);
    const Lanes width = gather([&](const std::size_t k) { return states.cell[k]->dens_width; });
    const Lanes tolerance = pres_tolerance * pres;
    Lanes dens = curve.start(pres);
    Lanes result = dens;
    LaneMask met = {};
    LaneMask left = {};
    for (int k = 0; k < most_steps && any(~(met | left)); ++k) {
      const Lanes offset = dens - at.dens0;
      left |= ~met & ((offset < -element_margin) | (offset > width + element_margin));
      const Lanes residual = curve.pressure(dens) - pres;
      const Lanes step = residual / curve.slope(dens);
      const Lanes last = absolute(step) < largest_last_step * dens ? dens - step : dens;
      result = met ? result : last;
      met |= ~left & (absolute(residual) < tolerance);
      dens = left ? dens : dens - step;
    }
    result = met ? result : at.dens0;  // others may have lost their density
    const LaneDerivatives d = evaluate_lanes(at, result, logarithm(result));
    write_lanes(batch, states, met, d, temp, result, pres);
    return ~met;
  }
};

/// Pressure and enthalpy or entropy.
template <class Property, SingleEntry entry, auto place_entry, auto finish_entry>
struct CaloricLanes {
  static constexpr SingleEntry single = entry;

  static constexpr auto place = place_entry;
  static constexpr auto finish = finish_entry;

  static bool take(const CaloricStart& start, const double pres, const double caloric,
                   LaneStates& states, const std::size_t k) {
    if (start.code != status::success || start.is_mixture || !(pres < 1e6) ||
        !is_promising(start.temp, start.dens)) {
      return false;
    }
    states.cell[k] = &element(start.element);
    states.temp[k] = start.temp;
    states.dens[k] = start.dens;
    states.pres[k] = pres;
    states.caloric[k] = caloric;
    return true;
  }

  /// `solve_caloric` as far as its first evaluations lead. A lane that has met its targets stays
  /// where it is while the others go on.
  [[gnu::noinline]] static LaneMask evaluate(const Batch& batch, LaneStates& states) {
    constexpr int most_steps = 6;
    const Lanes pres = load(states.pres);
    const Lanes caloric = load(states.caloric);
    const Lanes pres_close = gather(
        [&](const std::size_t k) { return caloric_target(pres[k], caloric[k]).pres_tolerance; });
    const Lanes caloric_close = gather(
        [&](const std::size_t k) { return caloric_target(pres[k], caloric[k]).caloric_tolerance; });
    Lanes temp = load(states.temp);
    Lanes dens = load(states.dens);
    LaneDerivatives d{};
    LaneMask met = {};
    LaneMask left = {};  // the elements
    for (int step = 0; step < most_steps; ++step) {
      follow(states, temp, dens, met, left);
      d = evaluate_lanes(lane_isotherm(states.cell, temp), dens, logarithm(dens));
      const Lanes pres_residual = pressure(d, dens) - pres;
      const Lanes caloric_residual = Property::value(d, temp, dens) - caloric;
      met |= (absolute(pres_residual) < pres_close) & (absolute(caloric_residual) < caloric_close);
      if (!any(~(met | left))) break;
      const auto move = caloric_step<Property>(d, temp, dens, pres_residual, caloric_residual);
      temp = met ? temp : temp - move.temp;
      dens = met ? dens : dens - move.dens;
    }
    LaneMask within = met & ~left & (temp >= temp_min) & (temp <= temp_max);
    const LaneMask unsure = within & ~surely_has_phase(pres, temp, dens);
    for (std::size_t k = 0; any(unsure) && k < lane_count; ++k) {
      if (unsure[k] != 0 && !has_phase(pres[k], temp[k], dens[k])) within[k] = 0;
    }
    write_lanes(batch, states, within, d, temp, dens, pres);
    return ~within;
  }

 private:
  /// Finds the elements of the iterates. One that leaves them all is held back in its last element:
  /// what becomes of it, the entry for one state shall say.
  static void follow(LaneStates& states, Lanes& temp, Lanes& dens, const LaneMask met,
                     LaneMask& left) {
    for (std::size_t k = 0; k < lane_count; ++k) {
      if (met[k] != 0 || serves(*states.cell[k], temp[k], dens[k])) continue;
      if (is_promising(temp[k], dens[k])) {
        const Element& next = element(relocate(temp[k], dens[k]));
        if (serves(next, temp[k], dens[k])) {
          states.cell[k] = &next;
          continue;
        }
      }
      left[k] = -1;
      temp[k] = states.cell[k]->temp0;
      dens[k] = states.cell[k]->dens0;
    }
  }
};

template <class Entry>
void run_lanes(const Batch& batch) noexcept {
  OutputCursor outputs(batch.out);
  const auto alone = [&](const std::size_t i) {
    Entry::single(batch.first[i], batch.second[i], batch.ierr[i], outputs.at(i));
  };
  LaneStates states;
  std::size_t filled = 0;
  for (std::size_t i = 0; i < batch.first.size(); ++i) {
    const double first = batch.first[i];
    const double second = batch.second[i];
    const auto place = Entry::place(first, second);
    if (!Entry::take(place, first, second, states, filled)) {
      Entry::finish(place, first, second, batch.ierr[i], outputs.at(i));
      continue;
    }
    states.index[filled] = i;
    if (++filled < lane_count) continue;
    filled = 0;
    const LaneMask left = Entry::evaluate(batch, states);
    for (std::size_t k = 0; k < lane_count; ++k) {
      if (left[k] != 0) alone(states.index[k]);
    }
  }
  for (std::size_t k = 0; k < filled; ++k) alone(states.index[k]);
}

constexpr BatchEntries lane_entries = {
    run_lanes<TdLanes>, run_lanes<TpLanes>,
    run_lanes<CaloricLanes<Enthalpy, co2_ph, place_ph, finish_ph>>,
    run_lanes<CaloricLanes<Entropy, co2_ps, place_ps, finish_ps>>};

}  // namespace
}  // namespace co2_properties
