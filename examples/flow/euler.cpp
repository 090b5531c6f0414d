#include "flow/euler.hpp"

#include <algorithm>

namespace flow {

Conserved conserved(const Flowing& f) {
  const State& s = f.state;
  return {s.dens, s.dens * f.velo, s.dens * (s.inte + 0.5 * f.velo * f.velo)};
}

Conserved flux(const Flowing& f) {
  const Conserved u = conserved(f);
  return {u.mome, u.mome * f.velo + f.state.pres, (u.ener + f.state.pres) * f.velo};
}

Conserved hllc_flux(const Flowing& left, const Flowing& right) {
  const State& l = left.state;
  const State& r = right.state;
  const double speed_l = std::min(left.velo - l.ssnd, right.velo - r.ssnd);
  const double speed_r = std::max(left.velo + l.ssnd, right.velo + r.ssnd);
  if (speed_l >= 0.0) return flux(left);
  if (speed_r <= 0.0) return flux(right);

  const double mass_l = l.dens * (speed_l - left.velo);  // through the outer waves
  const double mass_r = r.dens * (speed_r - right.velo);
  const double contact =
      (r.pres - l.pres + mass_l * left.velo - mass_r * right.velo) / (mass_l - mass_r);
  const auto behind = [contact](const Flowing& f, const double speed, const double mass) {
    const Conserved u = conserved(f);
    const double dens = mass / (speed - contact);
    const double ener =
        u.ener / f.state.dens + (contact - f.velo) * (contact + f.state.pres / mass);
    return flux(f) + speed * (Conserved{dens, dens * contact, dens * ener} - u);
  };
  return contact >= 0.0 ? behind(left, speed_l, mass_l) : behind(right, speed_r, mass_r);
}

}  // namespace flow
