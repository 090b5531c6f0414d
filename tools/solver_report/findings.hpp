#pragma once
// What a report keeps of its states.

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace co2_properties::solver_report {

/// A state that is worth showing and what came back.
struct Finding {
  double size;  ///< of the error
  double temp, dens, pres;
  double found_temp, found_dens;
  const char* where;  ///< the way it was drawn
};

/// The largest findings. NaN counts as larger than all.
class Worst {
 public:
  void note(const Finding& f) {
    const auto at = std::find_if(found_.begin(), found_.end(), [&](const Finding& other) {
      return !(other.size >= f.size) && other.size == other.size;
    });
    if (at == found_.end() && found_.size() == most) return;
    found_.insert(at, f);
    if (found_.size() > most) found_.pop_back();
  }
  void add(const Worst& other) {
    for (const Finding& f : other.found_) note(f);
  }
  [[nodiscard]] double largest() const { return found_.empty() ? 0.0 : found_.front().size; }
  void print(const char* title) const {
    if (found_.empty()) return;
    fmt::print("{}\n", title);
    for (const Finding& f : found_) {
      fmt::print(
          "  {:9.2e}  {:.17g} K {:.17g} kg/m3 ({:.12g} kPa) -> {:.12g} K {:.12g} kg/m3; {}\n",
          f.size, f.temp, f.dens, f.pres, f.found_temp, f.found_dens, f.where);
    }
  }

 private:
  static constexpr std::size_t most = 5;
  std::vector<Finding> found_;
};

/// Prints a measured value beside its bound. \return whether the bound holds; not for NaN
inline bool check(const char* what, const double value, const double bound) {
  const bool good = value <= bound;
  fmt::print("{:<66} {:10.4g}  bound {:<8.4g} {}\n", what, value, bound, good ? "" : "EXCEEDED");
  return good;
}

}  // namespace co2_properties::solver_report
