#pragma once
// Conserved quantities of one-dimensional inviscid flow and their flux between two states.

#include "flow/riemann.hpp"

namespace flow {

/// Per m3, or as a flux per m2 and s.
struct Conserved {
  double dens = 0.0;  ///< mass, kg
  double mome = 0.0;  ///< momentum, kg m/s
  double ener = 0.0;  ///< internal and kinetic energy, J

  friend Conserved operator+(const Conserved& a, const Conserved& b) {
    return {a.dens + b.dens, a.mome + b.mome, a.ener + b.ener};
  }
  friend Conserved operator-(const Conserved& a, const Conserved& b) { return a + -1.0 * b; }
  friend Conserved operator*(const double factor, const Conserved& a) {
    return {factor * a.dens, factor * a.mome, factor * a.ener};
  }
};

[[nodiscard]] Conserved conserved(const Flowing& f);

/// Flux that a state carries along.
[[nodiscard]] Conserved flux(const Flowing& f);

/// Flux between two states: approximate Riemann solver with contact. E. F. Toro, M. Spruce, W.
/// Speares, Shock Waves 4 (1994) 25; outer speeds from both states (S. F. Davis, SIAM J. Sci. Stat.
/// Comput. 9 (1988) 445). Knows the fluid by pressure, density, energy and speed of sound alone.
[[nodiscard]] Conserved hllc_flux(const Flowing& left, const Flowing& right);

}  // namespace flow
