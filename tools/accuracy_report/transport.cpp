#include "accuracy_report/transport.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "accuracy_report/errors.hpp"
#include "api/co2_properties.hpp"
#include "fits/near_critical.hpp"
#include "reference/conductivity.hpp"
#include "reference/conductivity_2016.hpp"
#include "reference/viscosity_2017.hpp"
#include "tablegen/parallel.hpp"

namespace co2_properties::accuracy {
namespace {

/// Library over newer model less one.
struct Departure {
  double temp, dens, pres;
  double visc, cond;
};

enum Part : std::size_t { gas, liquid, supercritical, linear, near_critical, part_count };

struct PartOfDomain {
  const char* name;
  std::initializer_list<Part> parts;
};
const PartOfDomain parts_of_domain[] = {{"gas, T < 304.1282 K", {gas}},
                                        {"liquid", {liquid}},
                                        {"supercritical", {supercritical}},
                                        {"all of these", {gas, liquid, supercritical}},
                                        {"the same, uniform in T and p", {linear}},
                                        {"302.9 .. 310 K, 350 .. 580 kg/m3", {near_critical}}};

class Drawing {
 public:
  Drawing(const std::uint64_t seed, const std::uint64_t part) {
    std::seed_seq sequence{seed, part};
    engine_.seed(sequence);
  }

  /// A single-phase state of a part.
  Departure state(const Part part) {
    for (;;) {
      Departure d{};
      std::int32_t ierr = 0;
      if (part == near_critical) {
        d.temp = uniform(near_critical_box.temp_lo, near_critical_box.temp_hi);
        d.dens = uniform(near_critical_box.dens_lo, near_critical_box.dens_hi);
      } else {
        const bool cold = part == gas || part == liquid;
        if (part == linear) {
          d.temp = uniform(temp_min, temp_max);
          d.pres = uniform(pres_min, pres_max);
        } else {
          d.temp = log_uniform(cold ? temp_min : t_crit, cold ? t_crit : temp_max);
          d.pres = log_uniform(pres_min, pres_max);
        }
        if (cold && (d.pres > calc_sat_pres(d.temp)) != (part == liquid)) continue;
        co2_tp(d.temp, d.pres, ierr, {.dens = &d.dens});
        if (ierr != status::success) continue;
      }
      co2_td(d.temp, d.dens, ierr, {.pres = &d.pres, .visc = &d.visc, .cond = &d.cond});
      if (ierr == status::success &&
          (part == near_critical || !near_critical_box.contains(d.temp, d.dens))) {
        return d;
      }
    }
  }

 private:
  double uniform(const double lo, const double hi) {
    constexpr double unit = 0x1p-53;
    return lo + (hi - lo) * unit * static_cast<double>(engine_() >> 11);
  }
  double log_uniform(const double lo, const double hi) {
    return std::exp(uniform(std::log(lo), std::log(hi)));
  }

  std::mt19937_64 engine_;
};

std::vector<std::string> row(const char* part, const char* property, double Departure::*const value,
                             std::vector<Departure>& states) {
  std::sort(states.begin(), states.end(), [&](const Departure& a, const Departure& b) {
    return std::abs(a.*value) < std::abs(b.*value);
  });
  const Departure& worst = states.back();
  const auto percent = [](const double part_of_one) {
    return fmt::format("{:.2f} %", 100.0 * part_of_one);
  };
  return {part,
          property,
          percent(std::abs(states[states.size() / 2].*value)),
          percent(std::abs(states[states.size() * 9 / 10].*value)),
          fmt::format("{:+.1f} %", 100.0 * worst.*value),
          fmt::format("{:.2f} K, {:.1f} kg/m3, {:.0f} kPa", worst.temp, worst.dens, worst.pres)};
}

}  // namespace

Section newer_models_section(const std::size_t count, const std::uint64_t seed,
                             const unsigned threads) {
  constexpr std::size_t block = 1000;
  std::vector<std::vector<Departure>> drawn(part_count, std::vector<Departure>(count));
  for (const Part part : {gas, liquid, supercritical, linear, near_critical}) {
    std::vector<Departure>& states = drawn[part];
    const std::size_t blocks = (count + block - 1) / block;
    tablegen::for_each_index(blocks, threads, [&](const std::size_t b) {
      Drawing drawing(seed, part_count * b + part);
      for (std::size_t k = b * block; k < std::min(count, (b + 1) * block); ++k) {
        Departure& d = states[k] = drawing.state(part);
        const double visc = reference::viscosity_2017(d.temp, d.dens);
        d.visc = d.visc / visc - 1.0;
        d.cond = d.cond / reference::conductivity_2016(d.temp, d.dens, visc) - 1.0;
      }
    });
  }
  std::vector<std::vector<std::string>> rows;
  for (const auto& [property, value] :
       {std::pair{"viscosity", &Departure::visc}, {"conductivity", &Departure::cond}}) {
    for (const PartOfDomain& p : parts_of_domain) {
      std::vector<Departure> states;
      for (const Part part : p.parts) {
        states.insert(states.end(), drawn[part].begin(), drawn[part].end());
      }
      rows.push_back(row(p.name, property, value, states));
    }
  }
  return {"newer_models",
          text_table({"where", "property", "median", "90 %", "largest", "at"}, rows), true};
}

Section internal_heat_section() {
  using namespace reference::conductivity_parts;
  std::vector<std::vector<std::string>> rows;
  for (const double temp : {240.0, 300.0, 400.0, 500.0, 600.0, 800.0, 1000.0, 1200.0, 1500.0}) {
    const double as_used = 1e3 * dilute(temp);
    const double own = 1e3 * dilute(temp, internal_heat_1990(temp));
    rows.push_back({fmt::format("{}", temp), fmt::format("{:.3f}", as_used),
                    fmt::format("{:.3f}", own),
                    fmt::format("{:+.3f} %", 100.0 * (as_used / own - 1.0))});
  }
  return {"internal_heat", text_table({"T, K", "as used", "paper's own", "difference"}, rows),
          true};
}

}  // namespace co2_properties::accuracy
