#include <fmt/format.h>

#include <array>
#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <vector>

#include "api/batch/levels.hpp"
#include "co2_properties/limits.hpp"
#include "fits/near_critical.hpp"
#include "solver_report/limit_states.hpp"
#include "solver_report/limits_report.hpp"
#include "solver_report/states.hpp"
#include "solver_report/traps.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::solver_report {
namespace {

constexpr std::size_t batch_size = 64;
constexpr std::size_t batches_in_chunk = 200;

// ---- Inputs ------------------------------------------------------------------------------------

/// An input of an entry: its range, and the values at which something changes.
struct Quantity {
  double lo, hi;
  std::vector<double> marks;
};
const Quantity temps = {temp_min,
                        temp_max,
                        {0.0, temp_min, 301.0, near_critical_box.temp_lo, 304.0482, t_crit,
                         near_critical_box.temp_hi, temp_max}};
const Quantity densities = {
    0.0035,
    1300.0,
    {0.0, dens_min, 286.0, near_critical_box.dens_lo, near_critical_box_for_cp.dens_lo, d_crit,
     near_critical_box.dens_hi, 659.0, 1300.0}};
const Quantity pressures = {
    pres_min, pres_max, {0.0, pres_min, 62.28, 1282.0, pres_sat_min, p_crit, 7378.0, pres_max}};
const Quantity enthalpies = {90.0, 1900.0, {0.0, 100.0, 332.0, 435.0, 456.0, 465.0, 1800.0, 1e4}};
const Quantity energies = {60.0, 1650.0, {0.0, 80.0, 290.0, 400.0, 1630.0, 1e4}};
const Quantity qualities = {1e-6, 1.0, {0.0, 1.0}};
const Quantity entropies = {0.4, 5.0, {0.0, 0.5, 1.4, 1.9, 2.25, 2.7, 4.9, 100.0}};

const struct {
  const Quantity& first;
  const Quantity& second;
} inputs[] = {{temps, densities},      {temps, pressures},    {pressures, enthalpies},
              {pressures, entropies},  {pressures, energies}, {temps, entropies},
              {enthalpies, entropies}, {temps, qualities},    {pressures, qualities}};

/// The planes with strips, and those of quality.
const std::vector<InputPlane>& planes() {
  static const std::vector<InputPlane> all = [] {
    std::vector<InputPlane> some(std::begin(input_planes), std::end(input_planes));
    some.push_back({"co2_tx", co2_tx, &BatchEntries::tx, {}, {}});
    some.push_back({"co2_px", co2_px, &BatchEntries::px, {}, {}});
    return some;
  }();
  return all;
}

/// Any finite bits, or a value in the range, or one at, around or far from a mark.
double draw(const Quantity& q, const bool any_bits, Draws& draws) {
  if (any_bits) {
    for (;;) {
      const auto value = std::bit_cast<double>(draws.below(~std::uint64_t{0}));
      if (std::isfinite(value)) return value;
    }
  }
  const double mark = q.marks[draws.below(q.marks.size())];
  switch (draws.below(4)) {
    case 0:
      return draws.close_to(mark);
    case 1: {
      const double distance = draws.log_uniform(1e-12, 10.0) * (std::abs(mark) + 1.0);
      return draws.coin() ? mark + distance : mark - distance;
    }
    case 2:
      return draws.log_uniform(q.lo, q.hi);
    default:
      return draws.uniform(q.lo, q.hi);
  }
}

// ---- Search ------------------------------------------------------------------------------------

std::vector<Level> levels_here() {
  std::vector<Level> found;
  for (const Level& level : levels(instruction_sets()).level) {
    if (level.runs) found.push_back(level);
  }
  return found;
}

struct Outputs {
  double value[output_count + derivative_count][batch_size];
  std::int32_t ierr[batch_size];

  StridedSpan<double> row(const int k) { return {value[k], batch_size}; }
  BatchOutputSet all() {
    return {row(0),  row(1),  row(2),  row(3),  row(4),  row(5),  row(6),  row(7),  row(8), row(9),
            row(10), row(11), row(12), row(13), row(14), row(15), row(16), row(17), row(18)};
  }
  BatchDerivativeSet derivatives() {
    std::array<StridedSpan<double>, derivative_count> rows;
    for (std::size_t k = 0; k < rows.size(); ++k) rows[k] = {value[output_count + k], batch_size};
    return std::bit_cast<BatchDerivativeSet>(rows);
  }
};

/// The ways to draw inputs of an entry: two, and then the strips at its limits.
enum Kind : std::size_t { random_bits, at_marks, first_strip };

Inputs draw_inputs(const std::size_t plane, const std::size_t kind, Draws& draws) {
  if (kind >= first_strip) return planes()[plane].draw(kind - first_strip, draws);
  // One of two bit patterns is drawn from the range: else hardly any call gets beyond its checks.
  const std::uint64_t which = kind == random_bits ? draws.below(3) : 3;
  return {draw(inputs[plane].first, which == 0 || which == 2, draws),
          draw(inputs[plane].second, which == 1 || which == 2, draws)};
}

struct Found {
  std::uint64_t raised = 0;
  const char* form = "";
  Inputs in{};  ///< of the last one, or of the start of its batch

  void note(const Level& at, const double first, const double second) {
    ++raised;
    form = at.name;
    in = {first, second};
  }
  void add(const Found& other) {
    const std::uint64_t sum = raised + other.raised;
    if (other.raised > 0) *this = other;
    raised = sum;
  }
};

/// Counts the calls that leave a flag behind.
Found search_chunk(const std::size_t plane, const std::size_t kind, const Level& form,
                   const std::uint64_t seed, const bool trap) {
  Draws draws(seed);
  Found found;
  Outputs out;
  const BatchOutputSet spans = out.all();
  const BatchDerivativeSet derivatives = out.derivatives();
  double first[batch_size];
  double second[batch_size];
  for (std::size_t batch = 0; batch < batches_in_chunk; ++batch) {
    for (std::size_t k = 0; k < batch_size; ++k) {
      const Inputs in = draw_inputs(plane, kind, draws);
      first[k] = in.first;
      second[k] = in.second;
    }
    const Traps traps(trap);
    const Batch states = {
        {first, batch_size}, {second, batch_size}, {out.ierr, batch_size}, spans, &derivatives};
    if (form.entries != &one_by_one) {
      (form.entries->*planes()[plane].batch)(states);
      if (std::fetestexcept(unwanted_exceptions) != 0) found.note(form, first[0], second[0]);
      continue;
    }
    BlockOutputs outputs(states);
    for (std::size_t k = 0; k < batch_size; ++k) {
      planes()[plane].single(first[k], second[k], out.ierr[k], outputs.of_state(k));
      if (std::fetestexcept(unwanted_exceptions) == 0) continue;
      found.note(form, first[k], second[k]);
      std::feclearexcept(unwanted_exceptions);
    }
  }
  return found;
}

/// \return whether nothing was raised
bool search(const std::size_t plane, const std::size_t kind, const std::vector<Level>& all_forms,
            const std::uint64_t states, const Options& options) {
  const std::uint64_t chunks = 1 + states / (batch_size * batches_in_chunk * all_forms.size());
  std::uint64_t seed = ((options.seed * planes().size() + plane) << 32U) + (kind << 24U);
  Found all;
  for (const Level& form : all_forms) {
    std::vector<Found> results(chunks);
    tablegen::for_each_index(chunks, options.threads, [&](const std::size_t chunk) {
      results[chunk] = search_chunk(plane, kind, form, seed + chunk, options.trap);
    });
    seed += chunks;
    for (const Found& f : results) all.add(f);
  }
  fmt::print("{:<8}{:<36}{:>12}{:>10}", planes()[plane].name,
             kind == random_bits ? "random bits"
             : kind == at_marks  ? "around branches"
                                 : planes()[plane].strips[kind - first_strip],
             chunks * batches_in_chunk * batch_size * all_forms.size(), all.raised);
  if (all.raised > 0) fmt::print("  ({:a}, {:a}) {}", all.in.first, all.in.second, all.form);
  fmt::print("\n");
  return all.raised == 0;
}

}  // namespace

bool report_exceptions(const Options& options) {
  const std::vector<Level> all_forms = levels_here();
  fmt::print("Forms:");
  for (const Level& form : all_forms) fmt::print(" {}", form.name);
  fmt::print("\n\n{:<8}{:<36}{:>12}{:>10}\n", "entry", "inputs", "count", "raised");
  bool good = true;
  for (std::size_t plane = 0; plane < planes().size(); ++plane) {
    const std::size_t kinds = first_strip + planes()[plane].strips.size();
    for (std::size_t kind = 0; kind < kinds; ++kind) {
      const std::uint64_t states = options.states / (kind < first_strip ? planes().size() : 10);
      good &= search(plane, kind, all_forms, states, options);
    }
  }
  fmt::print("\n{}\n", good ? "No call raises FE_INVALID, FE_DIVBYZERO or FE_OVERFLOW."
                            : "Calls raise floating-point exceptions.");
  return good;
}

}  // namespace co2_properties::solver_report
