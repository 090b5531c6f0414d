#pragma once
// How a state leaves the library: the only code that writes outputs, for one state or for several
// in lanes.

#include <cstdint>
#include <type_traits>

#include "api/entries/output_sets.hpp"
#include "co2_properties/limits.hpp"
#include "eos/properties.hpp"
#include "fits/near_critical.hpp"
#include "fits/patch.hpp"
#include "saturation/curves.hpp"
#include "saturation/tie_line.hpp"

namespace co2_properties {

/// Writes +0.0 to every present output.
[[gnu::visibility("default")]] void zero_outputs(const OutputSet& out) noexcept;

/// Reports an error: the code, and every present output and derivative +0.0.
void fail(std::int32_t code, std::int32_t& ierr, OutputSets out) noexcept;

/// Whether an output is present that only a single phase has, transport properties aside.
[[nodiscard, gnu::always_inline]] inline bool wants_cv_cp_ssnd(const OutputSet& out) noexcept {
  return out.cv != nullptr || out.cp != nullptr || out.ssnd != nullptr;
}

[[nodiscard, gnu::always_inline]] inline bool wants_transport(const OutputSet& out) noexcept {
  return out.visc != nullptr || out.cond != nullptr;
}

/// Whether a derivative is present that only a single phase has.
[[nodiscard]] bool wants_single_phase_derivatives(const DerivativeSet& out) noexcept;

/// Whether something is asked for that only a single phase has, transport properties aside.
[[nodiscard, gnu::always_inline]] inline bool wants_single_phase(const OutputSets out) noexcept {
  return wants_cv_cp_ssnd(out.state) ||
         (out.derivatives != nullptr && wants_single_phase_derivatives(*out.derivatives));
}

/// Outputs of one state, or of states in groups of lanes, in arrays.
class OutputWriter {
 public:
  /// \param at  element of the arrays to start with
  [[gnu::always_inline]] explicit inline OutputWriter(const OutputSets out,
                                                      const std::int32_t at = 0) noexcept
      : out_(out.state), derivatives_(out.derivatives), at_(at) {}

  /// Writes value(0), value(1), ... of all groups, if the output is present; where `value` takes
  /// two arguments, the second one is what has been written before.
  template <class V, class Value>
  [[gnu::always_inline]] inline void put(double* OutputSet::*const output,
                                         const std::int32_t groups,
                                         const Value& value) const noexcept {
    double* const slot = out_.*output;
    if (slot == nullptr) return;
    for (std::int32_t g = 0; g < groups; ++g) {
      double* const to = slot + at_ + g * lane_count<V>;
      if constexpr (std::is_invocable_v<Value, std::int32_t, V>) {
        store<V>(value(g, load<V>(to)), to);
      } else {
        store<V>(value(g), to);
      }
    }
  }

  /// Null where none are asked for.
  [[nodiscard, gnu::always_inline]] inline const DerivativeSet* derivatives() const noexcept {
    return derivatives_;
  }
  /// Element of the arrays to start with.
  [[nodiscard, gnu::always_inline]] inline std::int32_t at() const noexcept { return at_; }

 private:
  const OutputSet& out_;
  const DerivativeSet* derivatives_;
  std::int32_t at_;
};

/// `qual` of a single phase: the lever value or, where there is no saturation, a mark.
/// \param mark_pres  kPa, sets the mark from the critical temperature on
template <class V>
[[nodiscard, gnu::always_inline]] inline V single_phase_quality(const V& temp, const V& dens,
                                                                const V& mark_pres) noexcept {
  constexpr double below_crit_pres = 998.0;
  constexpr double above_crit_pres = 999.0;
  const Mask<V> saturates = temp < t_crit;
  const V mark =
      select<V>(mark_pres < p_crit, broadcast<V>(below_crit_pres), broadcast<V>(above_crit_pres));
  if (!any(saturates)) return mark;
  const V cold = select<V>(saturates, temp, broadcast<V>(temp_sat_min));
  return select<V>(
      saturates,
      lever_quality(dens, saturated_liquid_density<V>(cold), saturated_vapour_density<V>(cold)),
      mark);
}

/// Single-phase states, one or one in each lane.
template <class V>
struct SinglePhase {
  Derivatives<V> d;  ///< of their elements at
  V temp, dens;      ///< K, kg/m3
  V mark_pres;       ///< see `single_phase_quality`
  Mask<V> wanted;    ///< lanes that count; the others are written too, and raise no exception
  Mask<V> near;      ///< those near the critical point

  [[gnu::always_inline]] static inline SinglePhase of(const Derivatives<V>& d, const V& temp,
                                                      const V& dens, const V& mark_pres,
                                                      const Mask<V>& wanted) noexcept {
    return {d, temp, dens, mark_pres, wanted, near_critical_box.contains(temp, dens)};
  }
};

/// Writes the derivatives of a single phase: takes `StateDerivatives` in registers.
void write_derivatives(const DerivativeSet& out, double temp, double dens, double pv, double cv,
                       double dpdd, double pv_t) noexcept;
/// Writes those of a mixture.
/// \param at  element of the arrays
void write_derivatives(const DerivativeSet& out, std::int32_t at,
                       const Mixture<double>& m) noexcept;
/// Writes those of mixtures in lanes, one after the other: they are rare.
/// \param lanes  the numbers of a Mixture<V>, `count` of each
void write_derivatives(const DerivativeSet& out, std::int32_t at, const double* lanes,
                       std::int32_t count) noexcept;

/// An output that comes from a fit around the critical point, from a density on.
struct CriticalOutput {
  double* OutputSet::*output;
  const PatchFit* fit;
  double dens_lo;  ///< kg/m3
};
inline constexpr CriticalOutput critical_outputs[] = {
    {&OutputSet::cv, &cv_fit, near_critical_box.dens_lo},
    {&OutputSet::cp, &cp_fit, near_critical_box_for_cp.dens_lo},
    {&OutputSet::ssnd, &sound_speed_fit, near_critical_box.dens_lo},
};

/// Writes single-phase states. Around the critical point, where elements resolve second derivatives
/// worst, the heat capacities and the speed of sound come from their own fits. Derivatives of lanes
/// are left to whoever has them: see blocks.hpp of the batches.
template <class V>
[[gnu::always_inline]] inline void write_single_phase(const OutputWriter& out,
                                                      const SinglePhase<V>* const s,
                                                      const std::int32_t groups) noexcept {
  static_assert(near_critical_box_for_cp.temp_lo == near_critical_box.temp_lo &&
                near_critical_box_for_cp.temp_hi == near_critical_box.temp_hi &&
                near_critical_box_for_cp.dens_hi == near_critical_box.dens_hi);
  bool some_near = false;
  for (std::int32_t g = 0; g < groups; ++g) some_near = some_near || any(s[g].near);
  using O = OutputSet;
  out.put<V>(&O::temp, groups, [&](const std::int32_t g) CO2_INLINE { return s[g].temp; });
  out.put<V>(&O::pres, groups,
             [&](const std::int32_t g) CO2_INLINE { return pressure(s[g].d, s[g].dens); });
  out.put<V>(&O::dens, groups, [&](const std::int32_t g) CO2_INLINE { return s[g].dens; });
  out.put<V>(&O::svol, groups, [&](const std::int32_t g) CO2_INLINE { return 1.0 / s[g].dens; });
  out.put<V>(&O::qual, groups, [&](const std::int32_t g) CO2_INLINE {
    return single_phase_quality(s[g].temp, s[g].dens, s[g].mark_pres);
  });
  out.put<V>(&O::inte, groups,
             [&](const std::int32_t g) CO2_INLINE { return internal_energy(s[g].d, s[g].temp); });
  out.put<V>(&O::enth, groups,
             [&](const std::int32_t g) CO2_INLINE { return enthalpy(s[g].d, s[g].temp); });
  out.put<V>(&O::entr, groups, [&](const std::int32_t g) CO2_INLINE { return entropy(s[g].d); });
  out.put<V>(&O::cv, groups, [&](const std::int32_t g) CO2_INLINE {
    return isochoric_heat_capacity(s[g].d, s[g].temp);
  });
  out.put<V>(&O::cp, groups, [&](const std::int32_t g) CO2_INLINE {
    return isobaric_heat_capacity(s[g].d, s[g].temp);
  });
  out.put<V>(&O::ssnd, groups, [&](const std::int32_t g) CO2_INLINE {
    // What is not used may be the root of a negative number.
    const Mask<V> counts = s[g].wanted & opposite(s[g].near);
    return root<V>(select<V>(counts, speed_of_sound_squared(s[g].d), broadcast<V>(0.0)));
  });
  out.put<V>(&O::dpdd, groups, [&](const std::int32_t g) CO2_INLINE { return s[g].d.dpdd; });
  out.put<V>(&O::dpdt, groups,
             [&](const std::int32_t g) CO2_INLINE { return dpdt(s[g].d, s[g].dens); });
  out.put<V>(&O::dhdd, groups,
             [&](const std::int32_t g) CO2_INLINE { return dhdd(s[g].d, s[g].temp, s[g].dens); });
  out.put<V>(&O::dhdt, groups,
             [&](const std::int32_t g) CO2_INLINE { return dhdt(s[g].d, s[g].temp); });
  out.put<V>(&O::dsdd, groups,
             [&](const std::int32_t g) CO2_INLINE { return dsdd(s[g].d, s[g].dens); });
  out.put<V>(&O::dsdt, groups, [&](const std::int32_t g) CO2_INLINE { return dsdt(s[g].d); });
  out.put<V>(&O::visc, groups, [&](const std::int32_t g) CO2_INLINE {
    return evaluate_fit<V>(viscosity_fit, s[g].temp, s[g].dens);
  });
  out.put<V>(&O::cond, groups, [&](const std::int32_t g) CO2_INLINE {
    return evaluate_fit<V>(conductivity_fit, s[g].temp, s[g].dens);
  });
  if (some_near) {
    for (const CriticalOutput& c : critical_outputs) {
      out.put<V>(c.output, groups, [&](const std::int32_t g, const V& formula) CO2_INLINE {
        const Mask<V> box = s[g].near & (s[g].dens > c.dens_lo);
        if (!any(box)) return formula;
        return select<V>(box, evaluate_fit<V>(*c.fit, s[g].temp, s[g].dens), formula);
      });
    }
  }
  if constexpr (lane_count<V> == 1) {
    if (out.derivatives() == nullptr) return;
    const Derivatives<double>& d = s->d;
    write_derivatives(*out.derivatives(), s->temp, s->dens, d.pv,
                      isochoric_heat_capacity(d, s->temp), d.dpdd, d.pv_t);
  }
}

/// What becomes of viscosity and conductivity in a mixture.
enum class MixtureTransport {
  none,             ///< they have no value, and asking for them is worth a warning
  weighted_phases,  ///< those of the phases weighted by quality
};

/// The code of a mixture, by what is asked for.
/// \param two_phase  the warning that something has no value in two phases
template <MixtureTransport transport = MixtureTransport::none>
[[nodiscard, gnu::always_inline]] inline std::int32_t code_of_mixture(
    const std::int32_t two_phase, const OutputSets out) noexcept {
  const bool missing = wants_single_phase(out) ||
                       (transport == MixtureTransport::none && wants_transport(out.state));
  return missing ? two_phase : 0;
}

/// Writes mixtures of saturated liquid and vapour: the pressure of the vapour, energies and entropy
/// weighted by quality, and +0.0 for everything that has no value in two phases.
template <MixtureTransport transport, class V>
[[gnu::always_inline]] inline void write_mixture(const OutputWriter& out,
                                                 const Mixture<V>& m) noexcept {
  if (out.derivatives() != nullptr) {
    const Mixture<V> copy = m;  // which alone has to lie in memory
    if constexpr (lane_count<V> == 1) {
      write_derivatives(*out.derivatives(), out.at(), copy);
    } else {
      write_derivatives(*out.derivatives(), out.at(), reinterpret_cast<const double*>(&copy),
                        lane_count<V>);
    }
  }
  using O = OutputSet;
  const auto put = [&](double* O::*const output, const auto& value) CO2_INLINE {
    out.put<V>(output, 1, [&](std::int32_t) CO2_INLINE -> V { return value(); });
  };
  const auto mix = [&](const V& liq, const V& vap)
                       CO2_INLINE -> V { return (vap - liq) * m.qual + liq; };
  put(&O::temp, [&]() CO2_INLINE { return m.temp; });
  put(&O::pres, [&]() CO2_INLINE { return pressure(m.vap.d, m.vap.dens); });
  put(&O::dens, [&]() CO2_INLINE { return m.dens; });
  put(&O::svol, [&]() CO2_INLINE { return 1.0 / m.dens; });
  put(&O::qual, [&]() CO2_INLINE { return m.qual; });
  put(&O::inte, [&]() CO2_INLINE {
    return mix(internal_energy(m.liq.d, m.temp), internal_energy(m.vap.d, m.temp));
  });
  put(&O::enth,
      [&]() CO2_INLINE { return mix(enthalpy(m.liq.d, m.temp), enthalpy(m.vap.d, m.temp)); });
  put(&O::entr, [&]() CO2_INLINE { return mix(entropy(m.liq.d), entropy(m.vap.d)); });
  const auto put_transport = [&](double* O::*const output, const PatchFit& fit) CO2_INLINE {
    put(output, [&]() CO2_INLINE -> V {
      if constexpr (transport == MixtureTransport::none) return broadcast<V>(0.0);
      V of_phase[2] = {m.liq.dens, m.vap.dens};
      for (V& value : of_phase) value = evaluate_fit<V>(fit, m.temp, value);
      return of_phase[0] + m.qual * (of_phase[1] - of_phase[0]);
    });
  };
  put_transport(&O::visc, viscosity_fit);
  put_transport(&O::cond, conductivity_fit);
  for (double* O::*const output :
       {&O::cv, &O::cp, &O::ssnd, &O::dpdd, &O::dpdt, &O::dhdd, &O::dhdt, &O::dsdd, &O::dsdt}) {
    put(output, []() CO2_INLINE { return broadcast<V>(0.0); });
  }
}

}  // namespace co2_properties
