#include "accuracy_report/derivatives.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <random>

#include "api/co2_properties.hpp"
#include "fits/near_critical.hpp"
#include "reference/conductivity.hpp"
#include "reference/phase_equilibrium.hpp"
#include "reference/span_wagner.hpp"
#include "reference/viscosity.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::accuracy {

using D = DerivativeSet;
constexpr std::array<NamedDerivative, derivative_count> all_derivatives = {{
    // derivatives: begin, written by scripts/generate_outputs
    {"dpdd_u", &DerivativeSet::dpdd_u},       {"dpdu_d", &DerivativeSet::dpdu_d},
    {"dtdd_u", &DerivativeSet::dtdd_u},       {"dtdu_d", &DerivativeSet::dtdu_d},
    {"dddp_h", &DerivativeSet::dddp_h},       {"dddh_p", &DerivativeSet::dddh_p},
    {"dtdp_h", &DerivativeSet::dtdp_h},       {"dtdh_p", &DerivativeSet::dtdh_p},
    {"dddp_s", &DerivativeSet::dddp_s},       {"dtdp_s", &DerivativeSet::dtdp_s},
    {"dhdd_p", &DerivativeSet::dhdd_p},       {"dhdp_d", &DerivativeSet::dhdp_d},
    {"dsdd_p", &DerivativeSet::dsdd_p},       {"dsdp_d", &DerivativeSet::dsdp_d},
    {"dpdd_t", &DerivativeSet::dpdd_t},       {"dpdt_d", &DerivativeSet::dpdt_d},
    {"cv_eq", &DerivativeSet::cv_eq},         {"ssnd_eq", &DerivativeSet::ssnd_eq},
    {"compr_s", &DerivativeSet::compr_s},     {"compr_t", &DerivativeSet::compr_t},
    {"expan_p", &DerivativeSet::expan_p},     {"fundam", &DerivativeSet::fundam},
    {"dssnddd_t", &DerivativeSet::dssnddd_t}, {"dssnddt_d", &DerivativeSet::dssnddt_d},
    {"dviscdd_t", &DerivativeSet::dviscdd_t}, {"dviscdt_d", &DerivativeSet::dviscdt_d},
    {"dconddd_t", &DerivativeSet::dconddd_t}, {"dconddt_d", &DerivativeSet::dconddt_d},
    {"dqualdd_t", &DerivativeSet::dqualdd_t}, {"dqualdt_d", &DerivativeSet::dqualdt_d},
    // derivatives: end
}};

namespace {

using Real = long double;

/// A property with its derivatives at constant density and at constant temperature.
struct Property {
  Real value, temp, dens;
};

/// What a state of the reference is and how it changes.
struct ReferenceState {
  Property temp, dens, p, u, h, s, w, qual;
  bool mixture;
  Real qual_scale = 0;  ///< of dqual/dT at constant density
  Real fundam = 0;      ///< of a mixture
};

/// (dx/dy) at constant z.
Real along(const Property& x, const Property& y, const Property& z) {
  return (x.temp * z.dens - x.dens * z.temp) / (y.temp * z.dens - y.dens * z.temp);
}

/// The same with all terms positive: the scale of what changes its sign.
Real scale_along(const Property& x, const Property& y, const Property& z) {
  return (std::abs(x.temp * z.dens) + std::abs(x.dens * z.temp)) /
         std::abs(y.temp * z.dens - y.dens * z.temp);
}

/// Central differences of a function of temperature and density.
template <class Function>
Property differenced(const Function& f, const Real temp, const Real dens, const Real step) {
  const Real dt = temp * step;
  const Real dd = dens * step;
  return {f(temp, dens), (f(temp + dt, dens) - f(temp - dt, dens)) / (2 * dt),
          (f(temp, dens + dd) - f(temp, dens - dd)) / (2 * dd)};
}

/// Both phases at a saturation temperature.
struct TieLine {
  Real pres, v_liq, v_vap;
  reference::Properties<Real> liq, vap;

  static TieLine at(const Real temp) {
    const auto sat = reference::saturation<Real>(temp);
    return {sat.pres, 1 / sat.dens_liq, 1 / sat.dens_vap,
            reference::properties<Real>(temp, sat.dens_liq),
            reference::properties<Real>(temp, sat.dens_vap)};
  }
  Real quality(const Real svol) const { return (svol - v_liq) / (v_vap - v_liq); }
  /// Pressure, internal energy, enthalpy, entropy and quality of the mixture.
  std::array<Real, 5> mixture(const Real dens) const {
    const Real x = quality(1 / dens);
    const auto mix = [&](const Real l, const Real g) { return l + x * (g - l); };
    return {pres, mix(liq.u, vap.u), mix(liq.h, vap.h), mix(liq.s, vap.s), x};
  }
};

/// Of differences along the saturation line, K.
Real line_step(const Real temp) { return std::min(1e-3L, (Real(t_crit) - temp) * 1e-4L); }

/// The speed of sound of a mixture in equilibrium, with dT/drho along its isentrope.
struct EquilibriumSound {
  Real w, dtdd_s;
};
EquilibriumSound equilibrium_sound(const Real temp, const Real dens) {
  const Real step = line_step(temp);
  const TieLine line = TieLine::at(temp);
  const Real slope = (line.vap.s - line.liq.s) / (line.v_vap - line.v_liq);
  const auto u = [&](const Real t) { return TieLine::at(t).mixture(dens)[1]; };
  const Real cv = (u(temp + step) - u(temp - step)) / (2 * step);
  const Real dtdd_s = temp * slope / (dens * dens * cv);
  return {std::sqrt(1000 * dtdd_s * slope), dtdd_s};
}

/// Fundamental derivative of a mixture; three times the step changes it by 4e-6 of its value.
Real mixture_fundamental_derivative(const Real temp, const Real dens) {
  const EquilibriumSound here = equilibrium_sound(temp, dens);
  const Real dt = (Real(t_crit) - temp) * 1e-3L;
  const auto w = [&](const Real t) {
    return equilibrium_sound(t, dens + (t - temp) / here.dtdd_s).w;
  };
  return 1 + dens / here.w * (w(temp + dt) - w(temp - dt)) / (2 * dt) * here.dtdd_s;
}

ReferenceState single_phase(const Real temp, const Real dens) {
  const auto r = reference::properties<Real>(temp, dens);
  constexpr Real step = 1e-8L;
  ReferenceState state = {{temp, 1, 0}, {dens, 0, 1}, {r.p, r.dpdt, r.dpdd}, {}, {}, {}, {},
                          {},           false};
  state.u = {r.u, r.cv, (r.p - temp * r.dpdt) / (dens * dens)};
  state.h = {r.h, r.dhdt, r.dhdd};
  state.s = {r.s, r.dsdt, r.dsdd};
  state.w =
      differenced([](const Real t, const Real d) { return reference::properties<Real>(t, d).w; },
                  temp, dens, step);
  return state;
}

/// The mixture at a temperature and density, by saturated phases at three temperatures.
ReferenceState mixture(const Real temp, const Real dens) {
  const Real step = line_step(temp);
  const TieLine line = TieLine::at(temp);
  const TieLine above = TieLine::at(temp + step);
  const TieLine below = TieLine::at(temp - step);
  const Real dd = dens * 1e-6L;
  const auto here = line.mixture(dens);
  const auto hot = above.mixture(dens);
  const auto cold = below.mixture(dens);
  const auto thick = line.mixture(dens + dd);
  const auto thin = line.mixture(dens - dd);
  const auto property = [&](const std::size_t k) -> Property {
    return {here[k], (hot[k] - cold[k]) / (2 * step), (thick[k] - thin[k]) / (2 * dd)};
  };
  ReferenceState state = {{temp, 1, 0}, {dens, 0, 1}, property(0), property(1), property(2),
                          property(3),  {},           property(4), true};
  // (1 - x) dv_liq/dT and x dv_vap/dT, of which dx/dT is made, have different signs.
  const auto dxdt_at = [&](const Real svol) {
    return std::abs(above.quality(svol) - below.quality(svol)) / (2 * step);
  };
  state.qual_scale =
      std::abs(1 - here[4]) * dxdt_at(line.v_liq) + std::abs(here[4]) * dxdt_at(line.v_vap);
  return state;
}

/// Value and scale of each derivative; a scale of zero where there is none.
struct Expected {
  Real value = 0, scale = 0;
};

std::array<Expected, derivative_count> expected_of(const ReferenceState& r, const bool saturates,
                                                   const Property& visc, const Property& cond) {
  std::array<Expected, derivative_count> all;
  const auto set = [&](double* D::*const member, const Real value, const Real scale) {
    for (std::size_t k = 0; k < derivative_count; ++k) {
      if (all_derivatives[k].member == member) all[k] = {value, scale};
    }
  };
  const auto plain = [&](double* D::*const member, const Real value) {
    set(member, value, std::abs(value));
  };
  const auto slope = [&](double* D::*const member, const Property& x, const Property& y,
                         const Property& z) { set(member, along(x, y, z), scale_along(x, y, z)); };
  slope(&D::dpdd_u, r.p, r.dens, r.u);
  slope(&D::dpdu_d, r.p, r.u, r.dens);
  set(&D::dtdd_u, along(r.temp, r.dens, r.u),
      (r.p.value + r.temp.value * r.p.temp) / (r.dens.value * r.dens.value * r.u.temp));
  slope(&D::dtdu_d, r.temp, r.u, r.dens);
  slope(&D::dddp_h, r.dens, r.p, r.h);
  slope(&D::dddh_p, r.dens, r.h, r.p);
  const Real determinant = r.p.dens * r.h.temp - r.p.temp * r.h.dens;
  set(&D::dtdp_h, along(r.temp, r.p, r.h),
      (r.p.dens + r.temp.value * r.p.temp / r.dens.value) / (r.dens.value * determinant));
  slope(&D::dtdh_p, r.temp, r.h, r.p);
  slope(&D::dddp_s, r.dens, r.p, r.s);
  slope(&D::dtdp_s, r.temp, r.p, r.s);
  plain(&D::dhdd_p, along(r.h, r.dens, r.p));
  plain(&D::dhdp_d, along(r.h, r.p, r.dens));
  plain(&D::dsdd_p, along(r.s, r.dens, r.p));
  plain(&D::dsdp_d, along(r.s, r.p, r.dens));
  plain(&D::dpdt_d, r.p.temp);
  plain(&D::cv_eq, r.u.temp);
  const Real dpdd_s = along(r.p, r.dens, r.s);
  const Real ssnd = std::sqrt(1000 * dpdd_s);
  plain(&D::ssnd_eq, ssnd);
  plain(&D::compr_s, 1 / (r.dens.value * dpdd_s));
  if (saturates) {
    plain(&D::dqualdd_t, r.qual.dens);
    set(&D::dqualdt_d, r.qual.temp, r.qual_scale);
  }
  if (r.mixture) {
    set(&D::fundam, r.fundam, 1 + std::abs(r.fundam - 1));
    return all;
  }
  plain(&D::dpdd_t, r.p.dens);
  plain(&D::compr_t, 1 / (r.dens.value * r.p.dens));
  plain(&D::expan_p, r.p.temp / (r.dens.value * r.p.dens));
  const Real dtdd_s = along(r.temp, r.dens, r.s);
  plain(&D::fundam, 1 + r.dens.value / r.w.value * (r.w.dens + r.w.temp * dtdd_s));
  const auto gradient = [&](double* D::*const by_dens, double* D::*const by_temp,
                            const Property& x) {
    set(by_dens, x.dens, std::abs(x.dens) + x.value / r.dens.value);
    set(by_temp, x.temp, std::abs(x.temp) + x.value / r.temp.value);
  };
  gradient(&D::dssnddd_t, &D::dssnddt_d, r.w);
  gradient(&D::dviscdd_t, &D::dviscdt_d, visc);
  gradient(&D::dconddd_t, &D::dconddt_d, cond);
  return all;
}

}  // namespace

std::optional<DerivativeErrors> measure_derivatives(const double temp, const double dens) {
  DerivativeArray value;
  DerivativeSet derivatives;
  for (std::size_t k = 0; k < derivative_count; ++k) {
    derivatives.*all_derivatives[k].member = &value[k];
  }
  std::int32_t ierr = 0;
  co2_td(temp, dens, ierr, {}, derivatives);
  if (ierr > 0) return std::nullopt;
  const bool mixed = ierr < 0;
  const bool saturates = temp < t_crit - (mixed ? 0.01 : 1e-6);
  if (mixed && !saturates) return std::nullopt;
  if (saturates) {
    const auto sat = reference::saturation<Real>(temp);
    if (mixed != (dens > sat.dens_vap && dens < sat.dens_liq)) return std::nullopt;
  }
  ReferenceState r = mixed ? mixture(temp, dens) : single_phase(temp, dens);
  if (mixed) r.fundam = mixture_fundamental_derivative(temp, dens);
  // The lever value is that of the mixture; it is cheap enough but near the critical temperature.
  const bool has_qual = temp < t_crit - 0.01;
  if (has_qual && !mixed) {
    const ReferenceState lever = mixture(temp, dens);
    r.qual = lever.qual;
    r.qual_scale = lever.qual_scale;
  }
  constexpr Real step = 1e-8L;
  const Property visc = differenced(reference::viscosity<Real>, temp, dens, step);
  const Property cond = differenced(reference::conductivity<Real>, temp, dens, step);
  const auto expected = expected_of(r, has_qual, visc, cond);
  DerivativeErrors e{temp, dens, mixed, {}};
  for (std::size_t k = 0; k < derivative_count; ++k) {
    const Real off = value[k] - expected[k].value;
    const bool counts = expected[k].scale > 0;
    e.error[k] = counts ? static_cast<double>(off / expected[k].scale) : 0.0;
    if (std::isnan(e.error[k])) e.error[k] = std::numeric_limits<double>::infinity();
  }
  return e;
}

std::vector<DerivativeErrors> derivative_errors(const std::vector<StateErrors>& states,
                                                const std::size_t count, const std::uint64_t seed,
                                                const unsigned threads) {
  struct State {
    double temp, dens;
  };
  std::vector<State> at;
  std::mt19937_64 bits(seed);
  const auto uniform = [&] { return static_cast<double>(bits() >> 11U) * 0x1p-53; };
  for (std::size_t k = 0; k < std::min(count, states.size()); ++k) {
    at.push_back({states[k].temp, states[k].dens});
    // A mixture; every other one closes in on the critical temperature.
    const double temp = at.size() % 2 == 0 ? temp_sat_min + uniform() * (t_crit - temp_sat_min)
                                           : t_crit - std::pow(10.0, -2.0 + 3.0 * uniform());
    const double v_liq = 1.0 / calc_sat_liq_dens(temp);
    const double v_vap = 1.0 / calc_sat_vap_dens(temp);
    at.push_back({temp, 1.0 / (v_liq + uniform() * (v_vap - v_liq))});
  }
  std::vector<std::optional<DerivativeErrors>> found(at.size());
  tablegen::for_each_index(at.size(), threads, [&](const std::size_t k) {
    found[k] = measure_derivatives(at[k].temp, at[k].dens);
  });
  std::vector<DerivativeErrors> errors;
  for (const auto& e : found) {
    if (e) errors.push_back(*e);
  }
  return errors;
}

namespace {

/// Parts of the plane, by columns of the table.
struct Part {
  const char* title;
  bool mixture;
  bool (*contains)(const DerivativeErrors&);
};
constexpr double near = 0.2;  // K
bool in_box(const DerivativeErrors& e) { return near_critical_box.contains(e.temp, e.dens); }
const Part parts[] = {
    {"outside the box", false, [](const DerivativeErrors& e) { return !in_box(e); }},
    {"in it, beyond 0.2 K", false,
     [](const DerivativeErrors& e) { return in_box(e) && std::abs(e.temp - t_crit) > near; }},
    {"304.14 .. 304.33 K", false,
     [](const DerivativeErrors& e) {
       return in_box(e) && e.temp > 304.14 && e.temp <= t_crit + near;
     }},
    {"303.93 .. 304.1 K", false,
     [](const DerivativeErrors& e) {
       return in_box(e) && e.temp < 304.1 && e.temp >= t_crit - near;
     }},
    {"mixtures to 301 K", true, [](const DerivativeErrors& e) { return e.temp < 301.0; }},
    {"301 .. 303.9 K", true,
     [](const DerivativeErrors& e) { return e.temp >= 301.0 && e.temp < 303.9; }},
    {"303.9 .. 304.1 K", true,
     [](const DerivativeErrors& e) { return e.temp >= 303.9 && e.temp < 304.1; }},
    {"304.1 .. 304.118 K", true, [](const DerivativeErrors& e) { return e.temp >= 304.1; }},
};

/// Largest errors allowed in each part, three times what was measured; no bound where the
/// correlation has a kink (conductivity at 450 K) or diverges.
struct Bounds {
  double* D::*from;  ///< the first of the derivatives that these bounds hold for
  double bound[std::size(parts)];
};
constexpr double none = std::numeric_limits<double>::infinity();
constexpr Bounds all_bounds[] = {
    {&D::dpdd_u, {4e-4, 1.2e-3, 6e-4, 1e-3, 3e-5, 1.5e-3, 1.5e-2, 2e-2}},
    {&D::fundam, {2.5e-2, 4e-2, 6e-2, 6e-2, 4e-3, 6e-2, 1.7e-1, 1.9e-1}},
    {&D::dviscdd_t, {4e-4, 3e-5, 3e-5, 3e-5, none, none, none, none}},
    {&D::dconddd_t, {none, none, none, none, none, none, none, none}},
    {&D::dqualdd_t, {4e-2, 3e-3, none, 5e-2, 5e-5, 4e-3, 5e-2, 7e-2}},
};

}  // namespace

double derivative_bound(const DerivativeErrors& e, const std::size_t derivative) {
  const auto* bounds = all_bounds;
  for (std::size_t k = 0; k <= derivative; ++k) {
    for (const Bounds& b : all_bounds) {
      if (all_derivatives[k].member == b.from) bounds = &b;
    }
  }
  for (std::size_t k = 0; k < std::size(parts); ++k) {
    if (e.mixture == parts[k].mixture && parts[k].contains(e)) return bounds->bound[k];
  }
  return none;
}

Section derivative_set_section(const std::vector<DerivativeErrors>& errors) {
  std::vector<std::string> header = {"derivative"};
  for (const Part& part : parts) header.emplace_back(part.title);
  std::vector<std::vector<std::string>> rows;
  bool passed = true;
  for (std::size_t k = 0; k < derivative_count; ++k) {
    std::vector<std::string> row = {fmt::format("`{}`", all_derivatives[k].name)};
    for (const Part& part : parts) {
      const DerivativeErrors* worst = nullptr;
      for (const DerivativeErrors& e : errors) {
        if (e.mixture != part.mixture || !part.contains(e)) continue;
        if (worst == nullptr || std::abs(e.error[k]) > std::abs(worst->error[k])) worst = &e;
      }
      if (worst == nullptr || worst->error[k] == 0.0) {
        row.emplace_back("-");
        continue;
      }
      passed = passed && std::abs(worst->error[k]) <= derivative_bound(*worst, k);
      row.push_back(fmt::format("{:.1e} ({:.2f} K, {:.1f})", std::abs(worst->error[k]), worst->temp,
                                worst->dens));
    }
    rows.push_back(row);
  }
  return {"derivatives in sets", text_table(header, rows), passed};
}

}  // namespace co2_properties::accuracy
