#include "flow/solver.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <span>
#include <stdexcept>
#include <utility>

namespace flow {
namespace {

constexpr std::size_t halo = 2;

// Relative to pressure; the library meets pressures to 1e-11. What runs ahead of the waves is less.
constexpr double unresolved = 1e-12;

/// Adds the time from its making to its end.
class Timer {
 public:
  explicit Timer(double& sum) : sum_(sum) {}
  ~Timer() {
    sum_ += std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

 private:
  double& sum_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Half the limited difference across a cell (B. van Leer, J. Comput. Phys. 14 (1974) 361): zero at
/// extrema, else the harmonic mean, so that no face leaves the range of the neighbours.
double half_slope(const double left, const double middle, const double right) {
  const double a = middle - left;
  const double b = right - middle;
  return a * b > 0.0 ? a * b / (a + b) : 0.0;
}

Flowing reflected(const Flowing& f) { return {f.state, -f.velo}; }

}  // namespace

Solver::Solver(Case flow_case, const std::int64_t cells, const double cfl, const Ranks& ranks)
    : case_(std::move(flow_case)),
      ranks_(ranks),
      dx_(case_.length / static_cast<double>(cells)),
      cfl_(cfl) {
  const auto start = [&](const int rank) {
    return static_cast<std::size_t>(cells * rank / ranks.size());
  };
  before_ = start(ranks.rank());
  own_ = start(ranks.rank() + 1) - before_;
  if (cells < static_cast<std::int64_t>(halo) * ranks.size()) {
    throw std::runtime_error(
        fmt::format("{} ranks need at least {} cells each", ranks.size(), halo));
  }
  flow_.resize(own_ + 2 * halo);
  faces_.resize(flow_.size());
  for (std::size_t i = 0; i < own_; ++i) {
    inside_.push_back(conserved(case_.initial(place(before_ + i))));
  }
  update_states();
}

double Solver::place(const std::size_t cell) const {
  return dx_ * (static_cast<double>(cell) + 0.5);
}

void Solver::fill_halo() {
  const std::span<Flowing> all = flow_;
  const std::span<Flowing> own = all.subspan(halo, own_);
  {
    const Timer timer(times_.exchange);
    ranks_.exchange<Flowing>(own.first(halo), all.first(halo), own.last(halo), all.last(halo),
                             case_.left == End::ring);
  }
  const auto outside = [](const End end, const Flowing& nearest, const Flowing& mirror) {
    return end == End::wall ? reflected(mirror) : nearest;
  };
  for (std::size_t k = 0; k < halo; ++k) {
    if (ranks_.first() && case_.left != End::ring) {
      all[halo - 1 - k] = outside(case_.left, own.front(), own[k]);
    }
    if (ranks_.last() && case_.right != End::ring) {
      all[halo + own_ + k] = outside(case_.right, own.back(), own[own_ - 1 - k]);
    }
  }
}

/// Pressure, velocity and enthalpy are linear in a cell: pressure and velocity stay constant across
/// a contact, and (p, h) is a pair from which the library knows both phases.
void Solver::reconstruct() {
  const Timer timer(times_.faces);
  for (std::size_t i = 1; i + 1 < flow_.size(); ++i) {
    const Flowing& l = flow_[i - 1];
    const Flowing& f = flow_[i];
    const Flowing& r = flow_[i + 1];
    const double dp = half_slope(l.state.pres, f.state.pres, r.state.pres);
    const double dh = half_slope(l.state.enth, f.state.enth, r.state.enth);
    const double du = half_slope(l.velo, f.velo, r.velo);
    for (const std::size_t side : {0U, 1U}) {
      // Neighbours need one face only.
      if ((i < halo && side == 0) || (i >= halo + own_ && side == 1)) continue;
      const double sign = side == 0 ? -1.0 : 1.0;
      Flowing& face = faces_[i][side];
      face = {f.state, f.velo + sign * du};
      if (std::max(std::abs(dp), f.state.dens * std::abs(dh)) > unresolved * f.state.pres) {
        face.state = fluid_.from_ph(f.state.pres + sign * dp, f.state.enth + sign * dh);
      }
    }
  }
}

Solver::Rates Solver::rates() {
  fill_halo();
  reconstruct();
  std::vector<Conserved> through(own_ + 1);  // the left face of each own cell, and one more
  for (std::size_t i = 0; i <= own_; ++i) {
    through[i] = hllc_flux(faces_[halo + i - 1][1], faces_[halo + i][0]);
  }
  const auto only_pressure = [](const Conserved& f) { return Conserved{0.0, f.mome, 0.0}; };
  if (ranks_.first() && case_.left == End::wall) through.front() = only_pressure(through.front());
  if (ranks_.last() && case_.right == End::wall) through.back() = only_pressure(through.back());
  if (ranks_.last() && case_.right == End::open) {
    const Timer timer(times_.opening);
    const Flowing& inside = faces_[halo + own_ - 1][1];
    const Flowing exit = outflow(fluid_, inside, case_.pres_outside);
    through.back() =
        exit.velo > 0.0 ? flux(exit) : only_pressure(hllc_flux(inside, reflected(inside)));
  }
  Rates found{std::vector<Conserved>(own_), through.front(), through.back()};
  for (std::size_t i = 0; i < own_; ++i) found.cells[i] = 1.0 / dx_ * (through[i] - through[i + 1]);
  return found;
}

void Solver::update_states() {
  const Timer timer(times_.energy);
  for (std::size_t i = 0; i < own_; ++i) {
    const Conserved& u = inside_[i];
    const double velo = u.mome / u.dens;
    Flowing& f = flow_[halo + i];
    const double inte = u.ener / u.dens - 0.5 * velo * velo;
    f.velo = velo;
    // Where no wave has been, it would be the same state again.
    if (u.dens != f.state.dens || inte != f.state.inte) f.state = fluid_.from_energy(u.dens, inte);
  }
}

/// Heun's method, the optimal one of two stages that keeps total variation (S. Gottlieb, C.-W. Shu,
/// Math. Comput. 67 (1998) 73).
void Solver::step(const double dt) {
  const std::vector<Conserved> start = inside_;
  const Rates first = rates();
  for (std::size_t i = 0; i < own_; ++i) inside_[i] = start[i] + dt * first.cells[i];
  update_states();
  const Rates second = rates();
  for (std::size_t i = 0; i < own_; ++i) {
    inside_[i] = 0.5 * start[i] + 0.5 * (inside_[i] + dt * second.cells[i]);
  }
  update_states();
  passed_left_ = passed_left_ + 0.5 * dt * (first.left + second.left);
  passed_right_ = passed_right_ + 0.5 * dt * (first.right + second.right);
  ++steps_;
}

void Solver::run_until(const double time) {
  const Timer timer(times_.all);
  while (time_ < time) {
    double fastest = 0.0;
    for (std::size_t i = halo; i < halo + own_; ++i) {
      fastest = std::max(fastest, std::abs(flow_[i].velo) + flow_[i].state.ssnd);
    }
    {
      const Timer waiting(times_.exchange);
      fastest = ranks_.largest(fastest);
    }
    const double dt = cfl_ * dx_ / fastest;
    const bool last = time_ + dt >= time;
    step(last ? time - time_ : dt);
    time_ = last ? time : time_ + dt;
  }
}

std::vector<Flowing> Solver::profile() const {
  return ranks_.gather<Flowing>(std::span(flow_).subspan(halo, own_));
}

Budget Solver::budget() const {
  Budget b;
  for (const Conserved& u : ranks_.gather<Conserved>(inside_)) b.inside = b.inside + dx_ * u;
  const auto left = ranks_.gather<Conserved>(std::span(&passed_left_, 1));
  const auto right = ranks_.gather<Conserved>(std::span(&passed_right_, 1));
  if (ranks_.first()) b.passed = left.front() - right.back();
  return b;
}

}  // namespace flow
