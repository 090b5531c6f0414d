#include "brayton/report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <ios>
#include <string_view>
#include <vector>

#include "co2_properties.hpp"

namespace brayton {
namespace {

struct PointName {
  Point point;
  std::string_view number;
  std::string_view place;
};

constexpr std::array<PointName, point_count> points = {{
    {main_in, "1", "main compressor inlet"},
    {main_ideal, "2s", "main compressor isentropic"},
    {main_out, "2", "main compressor outlet"},
    {low_cold_out, "3", "low-temp. recuperator outlet"},
    {recomp_ideal, "4s", "recompressor isentropic"},
    {recomp_out, "4", "recompressor outlet"},
    {mixed, "5", "mixing point"},
    {heater_in, "6", "heater inlet"},
    {turbine_in, "7", "turbine inlet"},
    {turbine_ideal, "8s", "turbine isentropic"},
    {turbine_out, "8", "turbine outlet"},
    {high_hot_out, "9", "between the recuperators"},
    {low_hot_out, "10", "cooler and recompressor inlet"},
}};

/// Share of the flow through the turbine.
double flow_at(const Cycle& cycle, const Point point) {
  if (point < recomp_ideal) return cycle.split;
  return point < mixed ? 1.0 - cycle.split : 1.0;
}

void print_states(const Cycle& cycle) {
  fmt::print("{:<33}{:>7}{:>9}{:>9}{:>10}{:>9}{:>9}{:>8}{:>8}\n", "point", "flow", "temp", "pres",
             "enth", "entr", "dens", "cp", "ssnd");
  fmt::print("{:>49}{:>9}{:>10}{:>9}{:>9}{:>8}{:>8}\n", "K", "kPa", "kJ/kg", "kJ/kgK", "kg/m3",
             "kJ/kgK", "m/s");
  for (const auto& [point, number, place] : points) {
    const State& s = cycle.at[point];
    fmt::print("{:>3} {:<29}{:7.4f}{:9.3f}{:9.1f}{:10.3f}{:9.5f}{:9.3f}{:8.4f}{:8.2f}\n", number,
               place, flow_at(cycle, point), s.temp, s.pres, s.enth, s.entr, s.dens, s.cp, s.ssnd);
  }
}

void print_recuperator(const std::string_view name, const Recuperator& r,
                       const std::size_t intervals) {
  const std::vector<Station> profile = r.profile(intervals);
  const Station pinch = find_pinch(profile);
  fmt::print("{:<17}{:9.3f}{:15.4f}{:11.4f}{:21.4f}{:10.4f}{:9.4f}{:10.2f}\n", name, r.duty,
             r.duty / r.largest_duty(), conductance(profile), profile.front().difference(),
             profile.back().difference(), pinch.difference(),
             r.duty > 0.0 ? pinch.duty / r.duty : 0.0);
}

void print_balance(const Design& design, const Cycle& cycle) {
  const auto line = [](const std::string_view name, const double value,
                       const std::string_view unit) {
    fmt::print("{:<25}{:>12.4f}  {}\n", name, value, unit);
  };
  line("split fraction", cycle.split,
       design.split ? "through the main compressor, as given"
                    : "through the main compressor, that of highest efficiency");
  line("turbine work", cycle.turbine_work(), "kJ/kg");
  line("main compressor work", cycle.main_work(), "kJ/kg");
  line("recompressor work", cycle.recomp_work(), "kJ/kg");
  line("net work", cycle.net_work(), "kJ/kg");
  line("heat input", cycle.heat_in(), "kJ/kg");
  line("heat rejected", cycle.heat_out(), "kJ/kg");
  line("thermal efficiency", 100.0 * cycle.efficiency(), "%");
  line("Carnot efficiency", 100.0 * (1.0 - design.inlet_temp / design.turbine_temp),
       "% between the temperatures of points 1 and 7");
  fmt::print("{:<25}{:>12.1e}  of the heat input\n", "energy balance open by",
             std::abs(cycle.closure()));
}

/// A comma-separated file; every failure to write it throws.
class CsvFile {
 public:
  CsvFile(const std::filesystem::path& path, const std::string_view header) {
    file_.exceptions(std::ios::failbit | std::ios::badbit);
    file_.open(path);
    file_ << header << '\n';
  }
  template <class First, class... Others>
  void row(const First& first, const Others&... others) {
    file_ << fmt::format("{}", first);
    ((file_ << fmt::format(",{}", others)), ...);
    file_ << '\n';
  }
  void close() { file_.close(); }

 private:
  std::ofstream file_;
};

void write_states(const std::filesystem::path& path, const Cycle& cycle) {
  CsvFile file(path, "point,place,flow,temp,pres,enth,entr,dens,cp,ssnd");
  for (const auto& [point, number, place] : points) {
    const State& s = cycle.at[point];
    file.row(number, place, flow_at(cycle, point), s.temp, s.pres, s.enth, s.entr, s.dens, s.cp,
             s.ssnd);
  }
  file.close();
}

void write_lines(const std::filesystem::path& path, const Design& design, const Cycle& cycle) {
  constexpr int steps = 100;
  CsvFile file(path, "process,temp,pres,enth,entr,dens");
  const auto line = [&file](const std::string_view process, const auto& state_at) {
    for (int i = 0; i <= steps; ++i) {
      const State s = state_at(static_cast<double>(i) / steps);
      file.row(process, s.temp, s.pres, s.enth, s.entr, s.dens);
    }
  };
  const auto isobar = [&](const std::string_view process, const double pres, const Point from,
                          const Point to) {
    line(process, [&](const double share) {
      return state_ph(pres, std::lerp(cycle.at[from].enth, cycle.at[to].enth, share));
    });
  };
  const auto machine = [&](const std::string_view process, const Point from, const auto& change,
                           const double end_pres, const double efficiency) {
    const State& in = cycle.at[from];
    line(process, [&](const double share) {
      return change(in, std::lerp(in.pres, end_pres, share), efficiency, nullptr);
    });
  };
  const double low = design.low_pres;
  const double high = design.high_pres;
  machine("main compressor", main_in, compress, high, design.compressor_efficiency);
  isobar("low-temperature recuperator cold side", high, main_out, low_cold_out);
  machine("recompressor", low_hot_out, compress, high, design.recompressor_efficiency);
  isobar("high-temperature recuperator cold side", high, mixed, heater_in);
  isobar("heater", high, heater_in, turbine_in);
  machine("turbine", turbine_in, expand, low, design.turbine_efficiency);
  isobar("high-temperature recuperator hot side", low, turbine_out, high_hot_out);
  isobar("low-temperature recuperator hot side", low, high_hot_out, low_hot_out);
  isobar("cooler", low, low_hot_out, main_in);
  file.close();
}

void write_recuperators(const std::filesystem::path& path, const Design& design,
                        const Cycle& cycle) {
  CsvFile file(path, "recuperator,duty,temp_hot,temp_cold");
  const auto write_profile = [&](const std::string_view name, const Recuperator& recuperator) {
    for (const Station& s : recuperator.profile(design.intervals)) {
      file.row(name, s.duty, s.temp_hot, s.temp_cold);
    }
  };
  write_profile("low-temperature", cycle.low);
  write_profile("high-temperature", cycle.high);
  file.close();
}

void write_saturation(const std::filesystem::path& path) {
  constexpr int steps = 200;
  double t_crit = 0.0;
  double t_lowest = 0.0;
  co2_properties::co2_info(&t_crit, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           &t_lowest);
  CsvFile file(path, "temp,pres,enth_liq,entr_liq,enth_vap,entr_vap");
  for (int i = 0; i <= steps; ++i) {
    // Denser towards the critical point, where the dome is round.
    const double away = 1.0 - static_cast<double>(i) / steps;
    const double temp = t_crit - (t_crit - t_lowest) * away * away;
    const State liq = saturated_liquid(temp);
    const State vap = saturated_vapour(temp);
    file.row(temp, vap.pres, liq.enth, liq.entr, vap.enth, vap.entr);
  }
  file.close();
}

}  // namespace

void print_report(const Design& design, const Cycle& cycle) {
  fmt::print("Recompression Brayton cycle; flow, work and heat per kg through the turbine\n\n");
  print_states(cycle);
  fmt::print("\n{:<17}{:>9}{:>15}{:>11}{:>21}{:>10}{:>9}{:>10}\n", "recuperator", "duty",
             "effectiveness", "UA", "difference: cold end", "hot end", "pinch", "at");
  fmt::print("{:>26}{:>26}{:>21}{:>10}{:>9}{:>10}\n", "kJ/kg", "kJ/kgK", "K", "K", "K", "of duty");
  print_recuperator("low-temperature", cycle.low, design.intervals);
  print_recuperator("high-temperature", cycle.high, design.intervals);
  fmt::print("\n");
  print_balance(design, cycle);
}

void write_csv(const std::filesystem::path& folder, const Design& design, const Cycle& cycle) {
  std::filesystem::create_directories(folder);
  try {
    write_states(folder / "states.csv", cycle);
    write_lines(folder / "lines.csv", design, cycle);
    write_recuperators(folder / "recuperators.csv", design, cycle);
    write_saturation(folder / "saturation.csv");
  } catch (const std::ios::failure&) {
    throw std::runtime_error("cannot write the files in " + folder.string());
  }
}

}  // namespace brayton
