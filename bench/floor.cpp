#include "bench/floor.hpp"

#include <benchmark/benchmark.h>

#include <cmath>

namespace bench_floor {
namespace {

using Pair = double __attribute__((vector_size(16), may_alias));

/// Sums over the powers of tau for pairs of density functions; value, first and half of the second
/// derivative.
struct TempSums {
  Pair f[3], f_t[3], half_f_tt[3];
};

/// step(0), step(1), step(2), without a loop.
template <class Step>
[[gnu::always_inline]] inline void each_pair(const Step& step) noexcept {
  step(0);
  step(1);
  step(2);
}

/// All pairs step together: each alone waits for its own results.
[[gnu::always_inline]] inline void sum_powers(const Pair (&coef)[6][3], const Pair tau,
                                              TempSums& s) noexcept {
  each_pair([&](const int j) {
    const Pair c5 = coef[5][j];
    s.f[j] = c5 * tau;
    s.f_t[j] = 5.0 * c5 * tau;
    s.half_f_tt[j] = s.f_t[j] + s.f_t[j];
  });
  each_pair([&](const int j) {
    const Pair c4 = coef[4][j];
    s.f[j] = (s.f[j] + c4) * tau;
    s.f_t[j] = (s.f_t[j] + 4.0 * c4) * tau;
    s.half_f_tt[j] = (s.half_f_tt[j] + 6.0 * c4) * tau;
  });
  each_pair([&](const int j) {
    const Pair c3 = coef[3][j];
    const Pair three_c3 = 3.0 * c3;
    s.f[j] = (s.f[j] + c3) * tau;
    s.f_t[j] = (s.f_t[j] + three_c3) * tau;
    s.half_f_tt[j] = (s.half_f_tt[j] + three_c3) * tau;
  });
  each_pair([&](const int j) {
    const Pair c2 = coef[2][j];
    s.f[j] = (s.f[j] + c2) * tau;
    s.f_t[j] = (s.f_t[j] + 2.0 * c2) * tau;
    s.half_f_tt[j] = s.half_f_tt[j] + c2;
  });
  each_pair([&](const int j) {
    const Pair c1 = coef[1][j];
    s.f[j] = (s.f[j] + c1) * tau;
    s.f_t[j] = s.f_t[j] + c1;
  });
  each_pair([&](const int j) { s.f[j] = s.f[j] + coef[0][j]; });
}

template <class Real>
[[gnu::always_inline]] inline Real sum_density(const Real (&k)[6], const Real delta,
                                               const Real log_dens) noexcept {
  return k[0] * log_dens + ((((k[5] * delta + k[4]) * delta + k[3]) * delta + k[2]) * delta + k[1]);
}

template <class Real>
[[gnu::always_inline]] inline Real sum_slopes(const Real (&k)[6], const Real delta) noexcept {
  return ((4.0 * k[5] * delta + 3.0 * k[4]) * delta + 2.0 * k[3]) * delta + k[2];
}

[[gnu::always_inline]] inline double sum_curvatures(const double (&k)[6],
                                                    const double delta) noexcept {
  return (12.0 * k[5] * delta + 6.0 * k[4]) * delta + 2.0 * k[3];
}

[[gnu::always_inline]] inline Six evaluate_one(const Located& at) noexcept {
  const Record& record = *at.record;
  const double temp = at.temp;
  const double dens = at.dens;
  const double log_dens = std::log(dens);
  const double tau = temp - record.temp0;
  TempSums s;
  sum_powers(reinterpret_cast<const Pair(&)[6][3]>(record.coef), Pair{tau, tau}, s);

  // Of each density function the factor in a and the one in a_t, side by side.
  const Pair k[6] = {Pair{s.f[0][0], s.f_t[0][0]}, Pair{s.f[0][1], s.f_t[0][1]},
                     Pair{s.f[1][0], s.f_t[1][0]}, Pair{s.f[1][1], s.f_t[1][1]},
                     Pair{s.f[2][0], s.f_t[2][0]}, Pair{s.f[2][1], s.f_t[2][1]}};
  const Pair(&h)[3] = s.half_f_tt;
  const double half_f_tt[6] = {h[0][0], h[0][1], h[1][0], h[1][1], h[2][0], h[2][1]};
  const double f[6] = {k[0][0], k[1][0], k[2][0], k[3][0], k[4][0], k[5][0]};
  const double delta = dens - record.dens0;
  const Pair sums = sum_density(k, Pair{delta, delta}, Pair{log_dens, log_dens});
  const Pair slopes = sum_slopes(k, Pair{delta, delta});
  const double inverse = 1.0 / dens;
  const double a = sums[0];
  const double a_t = sums[1];
  const double a_tt = 2.0 * sum_density(half_f_tt, delta, log_dens);
  const double a_d = f[0] / dens + slopes[0];
  const double a_td = k[0][1] * inverse + slopes[1];
  const double a_dd = -f[0] * inverse * inverse + sum_curvatures(f, delta);

  return {dens * dens * a_d,
          a - temp * a_t + dens * a_d,
          -a_t,
          -temp * a_tt,
          temp * (dens * a_td * a_td / (2.0 * a_d + dens * a_dd) - a_tt),
          std::sqrt(1000.0 * dens * dens * (a_dd - a_td * a_td / a_tt + 2.0 * a_d / dens))};
}

}  // namespace

Six evaluate(const Located& s) noexcept { return evaluate_one(s); }

void evaluate_all(const std::span<const Located> states) noexcept {
  for (const Located& s : states) {
    Six six = evaluate_one(s);
    benchmark::DoNotOptimize(six);
  }
}

}  // namespace bench_floor
