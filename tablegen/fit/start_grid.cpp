#include "tablegen/fit/start_grid.hpp"

#include <Eigen/Dense>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "co2_properties/limits.hpp"
#include "eos/element.hpp"
#include "eos/properties.hpp"
#include "numbers/logarithm.hpp"
#include "saturation/phase.hpp"
#include "saturation/sat_density.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::tablegen {
namespace {

/// A state at its place in the plane of the grid.
struct Sample {
  double x, y;
  double temp, log_dens;
};

/// Half-open range of the smallest squares.
struct Square {
  std::int32_t column, row, size;
};

// ---- States ------------------------------------------------------------------------------------

/// States of an element in each direction, both ends included: a power of two.
constexpr int steps = 64;

/// Densities of an element, down to vanishing density in equal ratios. Of exact operations, so that
/// no machine gets others.
std::vector<double> densities_of(const Element& cell) {
  const double top = cell.dens0 + cell.dens_width;
  double ratio = dens_min / top;
  for (int k = 1; k < steps; k *= 2) ratio = std::sqrt(ratio);
  std::vector<double> densities;
  double thinner = top;
  for (int j = 0; j <= steps; ++j) {
    const double evenly = top - cell.dens_width * j / steps;
    densities.push_back(cell.dens0 > 0.1 * top ? evenly : std::max(thinner, cell.dens0));
    thinner *= ratio;
  }
  return densities;
}

/// Whether a state is one that an element serves: a single phase of its region, within the range.
bool is_served(const std::int32_t e, const double temp, const double dens, const double pres) {
  constexpr double slack = 1e-3;
  if (!(pres > pres_min * (1.0 - slack) && pres < pres_max * (1.0 + slack))) return false;
  if (temp < temp_min - slack || temp > temp_max + slack) return false;
  if (temp >= t_crit) return true;
  const Phase phase = phase_from_td(temp, dens);
  return phase == (e < first_liquid ? Phase::vapour : Phase::liquid);
}

std::vector<Sample> sample_element(const StartGridDesign& design, const std::int32_t e) {
  const Element& cell = element(e);
  const std::vector<double> densities = densities_of(cell);
  std::vector<Sample> samples;
  const auto add = [&](const double temp, const double dens) {
    const Derivatives<double> d = evaluate(cell, temp, dens);
    if (!is_served(e, temp, dens, pressure(d, dens))) return;
    const auto [x, y] = design.coordinates(d, temp, dens);
    samples.push_back({x, y, temp, logarithm(dens)});
  };
  for (int i = 0; i <= steps; ++i) {
    const double temp = std::min(cell.temp0 + cell.temp_width * i / steps, temp_max);
    for (const double dens : densities) add(temp, dens);
    if (temp >= t_crit || temp < temp_min) continue;
    const double sat = e < first_liquid ? calc_sat_vap_dens(temp) : calc_sat_liq_dens(temp);
    if (sat >= cell.dens0 && sat < cell.dens0 + cell.dens_width) add(temp, sat);
  }
  return samples;
}

/// All states, sorted by the smallest square that holds them.
class Samples {
 public:
  explicit Samples(const StartGridDesign& design, const EqualBins<square_count>& x,
                   const EqualBins<square_count>& y) {
    std::vector<std::vector<Sample>> of_element(element_count);
    in_parallel(element_count, [&](const std::size_t k) {
      of_element[k] = sample_element(design, static_cast<std::int32_t>(k) + 1);
    });
    for (const auto& part : of_element) {
      for (const Sample& s : part) {
        ++start_[static_cast<std::size_t>(y.find(s.y) * square_count + x.find(s.x)) + 1];
      }
    }
    for (std::size_t k = 1; k < start_.size(); ++k) start_[k] += start_[k - 1];
    std::vector<std::size_t> next(start_.begin(), start_.end() - 1);
    sorted_.resize(start_.back());
    for (const auto& part : of_element) {
      for (const Sample& s : part) {
        sorted_[next[static_cast<std::size_t>(y.find(s.y) * square_count + x.find(s.x))]++] = s;
      }
    }
  }

  /// work(sample) for those of a square, widened by `margin` smallest squares.
  template <class Work>
  void visit(const Square& s, const std::int32_t margin, const Work& work) const {
    const auto clamped = [](const std::int32_t k) { return std::clamp(k, 0, square_count); };
    for (std::int32_t row = clamped(s.row - margin); row < clamped(s.row + s.size + margin);
         ++row) {
      const std::size_t first = static_cast<std::size_t>(row) * square_count;
      const std::size_t from = start_[first + static_cast<std::size_t>(clamped(s.column - margin))];
      const std::size_t end =
          start_[first + static_cast<std::size_t>(clamped(s.column + s.size + margin))];
      for (std::size_t k = from; k < end; ++k) work(sorted_[k]);
    }
  }

 private:
  std::vector<std::size_t> start_ =
      std::vector<std::size_t>(static_cast<std::size_t>(square_count) * square_count + 1);
  std::vector<Sample> sorted_;
};

// ---- Fits --------------------------------------------------------------------------------------

using Vector = Eigen::Matrix<long double, Eigen::Dynamic, 1>;
using Matrix = Eigen::Matrix<long double, Eigen::Dynamic, Eigen::Dynamic>;

/// The factors of a cubic, in the order of `start_cubic`, at an offset.
std::array<long double, start_terms> terms(const long double x, const long double y) {
  return {1.0L, x, y, x * x, x * y, y * y, x * x * x, x * x * y, x * y * y, y * y * y};
}

struct Error {
  double worst = 0.0;
  double sum = 0.0;
  std::size_t count = 0;
};

class Fitter {
 public:
  explicit Fitter(const StartGridDesign& design)
      : design_(design),
        x_{design.x_lo, square_count / (design.x_hi - design.x_lo)},
        y_{design.y_lo, square_count / (design.y_hi - design.y_lo)},
        samples_(design, x_, y_) {}

  /// The numbers of a patch; none where there are too few states.
  [[nodiscard]] std::vector<float> fit(const Square& square) const {
    const std::vector<Sample> states = states_of(square);
    if (states.size() < least_states) return {};
    const double half_x = 0.5 * square.size / x_.per_unit;
    const double half_y = 0.5 * square.size / y_.per_unit;
    const auto x0 = static_cast<float>(x_.low + square.column / x_.per_unit + half_x);
    const auto y0 = static_cast<float>(y_.low + square.row / y_.per_unit + half_y);
    const auto rows = static_cast<Eigen::Index>(states.size());
    Matrix a(rows, start_terms);
    Matrix b(rows, 2);
    for (Eigen::Index k = 0; k < rows; ++k) {
      const Sample& s = states[static_cast<std::size_t>(k)];
      const auto t = terms((s.x - double{x0}) / half_x, (s.y - double{y0}) / half_y);
      for (std::int32_t i = 0; i < start_terms; ++i) a(k, i) = t[static_cast<std::size_t>(i)];
      b(k, 0) = s.temp;
      b(k, 1) = s.log_dens;
    }
    const Matrix solution = a.completeOrthogonalDecomposition().solve(b);
    const auto scale = terms(1.0L / half_x, 1.0L / half_y);
    std::vector<float> numbers = {x0, y0};
    for (Eigen::Index output = design_.with_temp ? 0 : 1; output < 2; ++output) {
      for (std::int32_t i = 0; i < start_terms; ++i) {
        numbers.push_back(
            static_cast<float>(solution(i, output) * scale[static_cast<std::size_t>(i)]));
      }
    }
    numbers.resize((numbers.size() + 3) / 4 * 4);
    return numbers;
  }

  /// Errors of a patch over the states of a square.
  [[nodiscard]] Error error(const Square& square, const std::vector<float>& numbers) const {
    Error e;
    const std::size_t last = design_.with_temp ? start_terms : 0;
    samples_.visit(square, 0, [&](const Sample& s) {
      const auto value = [&](const std::size_t from) {
        return start_cubic<double>(
            s.x - double{numbers[0]}, s.y - double{numbers[1]},
            [&](const int k) { return double{numbers[2 + from + static_cast<std::size_t>(k)]}; });
      };
      double miss = std::abs(value(last) - s.log_dens);
      if (design_.with_temp) miss = std::max(miss, std::abs(value(0) / s.temp - 1.0));
      e.worst = std::max(e.worst, miss);
      e.sum += miss;
      ++e.count;
    });
    return e;
  }

  [[nodiscard]] double tolerance() const { return design_.tolerance; }

 private:
  static constexpr std::size_t least_states = 20;

  /// States of a square and its surroundings; those of a root, which no larger square serves, reach
  /// as far as it takes.
  [[nodiscard]] std::vector<Sample> states_of(const Square& square) const {
    std::int32_t margin = std::max(1, square.size / 8);
    std::vector<Sample> states = spread(square, margin);
    while (square.size == root_size && states.size() < least_states && margin < square.size) {
      margin *= 2;
      states = spread(square, margin);
    }
    return states;
  }

  /// At most one state in each of 16 by 16 parts of a square and a margin around it.
  [[nodiscard]] std::vector<Sample> spread(const Square& square, const std::int32_t margin) const {
    constexpr std::int32_t parts = 16;
    std::array<bool, std::size_t{parts} * parts> taken{};
    std::vector<Sample> states;
    samples_.visit(square, margin, [&](const Sample& s) {
      const auto part = [&](const EqualBins<square_count>& bins, const double value,
                            const std::int32_t first) {
        const double at = ((value - bins.low) * bins.per_unit - (first - margin)) /
                          (square.size + 2 * margin) * parts;
        return static_cast<std::size_t>(std::clamp(at, 0.0, parts - 1.0));
      };
      bool& is_taken = taken[part(x_, s.x, square.column) * parts + part(y_, s.y, square.row)];
      if (!is_taken) states.push_back(s);
      is_taken = true;
    });
    return states;
  }

  const StartGridDesign& design_;
  EqualBins<square_count> x_, y_;
  Samples samples_;
};

// ---- Squares -----------------------------------------------------------------------------------

/// One root: patches, and which of them the smallest squares have.
struct RootFit {
  std::vector<std::vector<float>> patches;
  std::array<std::array<std::int32_t, root_size>, root_size> patch{};  ///< [row][column]
  std::int32_t finest = root_size;  ///< size of the smallest square that has a patch of its own
  Error error;
};

void divide(const Fitter& fitter, const Square& root, const Square& square,
            const std::vector<float>& larger, RootFit& fit) {
  std::vector<float> numbers = fitter.fit(square);
  const bool is_new = !numbers.empty();
  if (!is_new) numbers = larger;
  const Error error = numbers.empty() ? Error{} : fitter.error(square, numbers);
  if (is_new && error.worst > fitter.tolerance() && square.size > 1) {
    const std::int32_t half = square.size / 2;
    for (const std::int32_t row : {0, half}) {
      for (const std::int32_t column : {0, half}) {
        divide(fitter, root, {square.column + column, square.row + row, half}, numbers, fit);
      }
    }
    return;
  }
  if (numbers.empty()) return;
  fit.error.worst = std::max(fit.error.worst, error.worst);
  fit.error.sum += error.sum;
  fit.error.count += error.count;
  const auto known = std::find(fit.patches.begin(), fit.patches.end(), numbers);
  const auto number = static_cast<std::int32_t>(known - fit.patches.begin());
  if (known == fit.patches.end()) fit.patches.push_back(numbers);
  fit.finest = std::min(fit.finest, square.size);
  for (std::int32_t row = square.row; row < square.row + square.size; ++row) {
    for (std::int32_t column = square.column; column < square.column + square.size; ++column) {
      fit.patch[static_cast<std::size_t>(row - root.row)]
               [static_cast<std::size_t>(column - root.column)] = number;
    }
  }
}

}  // namespace

FittedGrid fit_start_grid(const StartGridDesign& design) {
  const Fitter fitter(design);
  std::vector<RootFit> roots(static_cast<std::size_t>(root_count) * root_count);
  in_parallel(roots.size(), [&](const std::size_t k) {
    const auto at = static_cast<std::int32_t>(k);
    const Square root = {at % root_count * root_size, at / root_count * root_size, root_size};
    divide(fitter, root, root, {}, roots[k]);
  });
  FittedGrid grid;
  Error error;
  for (const RootFit& root : roots) {
    // A root without states borrows the first patch of all: any number will do.
    const std::size_t first = root.patches.empty() ? 0 : grid.patches.size();
    std::uint16_t bits = 0;
    while (root_size >> bits > root.finest) ++bits;
    grid.roots.push_back({static_cast<std::uint16_t>(grid.squares.size()), bits});
    const auto size = static_cast<std::size_t>(root.finest);
    for (std::size_t row = 0; row < root_size; row += size) {
      for (std::size_t column = 0; column < root_size; column += size) {
        grid.squares.push_back(
            static_cast<std::uint16_t>(first + static_cast<std::size_t>(root.patch[row][column])));
      }
    }
    grid.patches.insert(grid.patches.end(), root.patches.begin(), root.patches.end());
    error.worst = std::max(error.worst, root.error.worst);
    error.sum += root.error.sum;
    error.count += root.error.count;
  }
  if (grid.squares.size() > 0xffff || grid.patches.size() > 0xffff) {
    throw std::runtime_error(design.name + ": too many squares");
  }
  grid.worst = error.worst;
  grid.mean = error.sum / static_cast<double>(error.count);
  return grid;
}

}  // namespace co2_properties::tablegen
