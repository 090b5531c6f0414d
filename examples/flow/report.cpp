#include "flow/report.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <stdexcept>

namespace flow {

Errors errors(const Snapshot& snapshot) {
  const auto mean_error = [&](const auto& value) {
    double error = 0.0;
    double size = 0.0;
    for (std::size_t i = 0; i < snapshot.flow.size(); ++i) {
      error += std::abs(value(snapshot.flow[i]) - value(snapshot.exact[i]));
      size += std::abs(value(snapshot.exact[i]));
    }
    return size > 0.0 ? error / size : error / static_cast<double>(snapshot.flow.size());
  };
  return {mean_error([](const Flowing& f) { return f.state.dens; }),
          mean_error([](const Flowing& f) { return f.velo; }),
          mean_error([](const Flowing& f) { return f.state.pres; })};
}

Imbalance imbalance(const Budget& start, const Budget& end, const Snapshot& last,
                    const double length) {
  const Conserved left = end.inside - start.inside - (end.passed - start.passed);
  double mome = 0.0;
  for (const Flowing& f : last.flow) mome += f.state.dens * (std::abs(f.velo) + f.state.ssnd);
  mome *= length / static_cast<double>(last.flow.size());
  return {std::abs(left.dens) / start.inside.dens, std::abs(left.mome) / mome,
          std::abs(left.ener / start.inside.ener)};
}

void print_work(const std::span<const Work> ranks) {
  Times t;
  Fluid::Calls c;
  for (const auto& [times, calls] : ranks) {
    for (double Times::*const part :
         {&Times::energy, &Times::faces, &Times::opening, &Times::exchange, &Times::all}) {
      t.*part += times.*part;
    }
    for (std::int64_t Fluid::Calls::*const part :
         {&Fluid::Calls::du, &Fluid::Calls::ph, &Fluid::Calls::ps, &Fluid::Calls::loose}) {
      c.*part += calls.*part;
    }
  }
  const auto line = [&](const char* const name, const std::int64_t count, const double time) {
    fmt::print("  {:<30}{:>11} {:>9.0f} {:>8.1f}\n", name, count,
               count > 0 ? 1e9 * time / static_cast<double>(count) : 0.0, 100.0 * time / t.all);
  };
  fmt::print("work of all ranks                     number   ns each   % time\n");
  line("cells from (dens, inte)", c.du, t.energy);
  line("faces from (pres, enth)", c.ph, t.faces);
  line("open end from (pres, entr)", c.ps, t.opening);
  fmt::print("  properties together           {:>30.1f}\n",
             100.0 * (t.energy + t.faces + t.opening) / t.all);
  fmt::print("  exchange between ranks        {:>30.1f}\n", 100.0 * t.exchange / t.all);
  fmt::print("loose {}\n", c.loose);
  fmt::print("time {:.3f} s\n", t.all / static_cast<double>(ranks.size()));
}

void write_csv(const std::filesystem::path& folder, const std::string& name,
               const std::span<const Snapshot> snapshots) {
  const std::filesystem::path path = folder / (name + ".csv");
  try {
    std::filesystem::create_directories(folder);
    std::ofstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(path);
    file << "time,x,dens,velo,pres,temp,inte,ssnd,qual,dens_exact,velo_exact,pres_exact,temp_"
            "exact\n";
    for (const Snapshot& snapshot : snapshots) {
      for (std::size_t i = 0; i < snapshot.flow.size(); ++i) {
        const auto& [s, velo] = snapshot.flow[i];
        file << fmt::format("{},{},{},{},{},{},{},{},", snapshot.time, snapshot.x[i], s.dens, velo,
                            s.pres / 1000.0, s.temp, s.inte / 1000.0, s.ssnd);
        if (s.two_phase) file << fmt::format("{}", s.qual);
        if (snapshot.exact.empty()) {
          file << ",,,,\n";
        } else {
          const auto& [exact, velo_exact] = snapshot.exact[i];
          file << fmt::format(",{},{},{},{}\n", exact.dens, velo_exact, exact.pres / 1000.0,
                              exact.temp);
        }
      }
    }
    file.close();
  } catch (const std::exception&) {
    throw std::runtime_error("cannot write " + path.string());
  }
}

}  // namespace flow
