#include "co2/subcommand.hpp"

#include <fmt/format.h>

#include "co2_properties.hpp"

namespace co2_properties::tool {
namespace {

constexpr const Property* property(const std::string_view name) {
  return &properties[find_property(name)];
}

constexpr Subcommand all[] = {
    // entries: begin, written by scripts/generate_entries
    {"td",
     "State from temperature and density",
     {property("temp"), property("dens")},
     "310 600",
     &co2_td},
    {"tp",
     "State from temperature and pressure; never two-phase",
     {property("temp"), property("pres")},
     "310 8000",
     &co2_tp},
    {"ph",
     "State from pressure and enthalpy",
     {property("pres"), property("enth")},
     "8000 400",
     &co2_ph},
    {"ps",
     "State from pressure and entropy",
     {property("pres"), property("entr")},
     "8000 1.7",
     &co2_ps},
    {"du",
     "State from density and internal energy",
     {property("dens"), property("inte")},
     "600 300",
     &co2_du},
    {"dh",
     "State from density and enthalpy",
     {property("dens"), property("enth")},
     "600 320",
     &co2_dh},
    {"ds",
     "State from density and entropy",
     {property("dens"), property("entr")},
     "600 1.4",
     &co2_ds},
    {"dp",
     "State from density and pressure",
     {property("dens"), property("pres")},
     "600 9000",
     &co2_dp},
    {"hs",
     "State from enthalpy and entropy",
     {property("enth"), property("entr")},
     "400 1.7",
     &co2_hs},
    {"pu",
     "State from pressure and internal energy",
     {property("pres"), property("inte")},
     "8000 380",
     &co2_pu},
    {"ts",
     "State from temperature and entropy",
     {property("temp"), property("entr")},
     "310 1.7",
     &co2_ts},
    {"tx",
     "State from temperature and quality",
     {property("temp"), property("qual")},
     "280 0.5",
     &co2_tx},
    {"px",
     "State from pressure and quality",
     {property("pres"), property("qual")},
     "4000 0.5",
     &co2_px},
    // entries: end
    {"sat_t",
     "Saturated liquid and vapour from temperature",
     {property("temp")},
     "280",
     nullptr,
     &co2_sat_t},
    {"sat_p",
     "Saturated liquid and vapour from pressure",
     {property("pres")},
     "4000",
     nullptr,
     &co2_sat_p},
};

}  // namespace

std::span<const Subcommand> subcommands() noexcept { return all; }

Choice choice(const Subcommand& subcommand) {
  Choice found;
  for (std::size_t i = 0; i < property_count; ++i) {
    if (properties[i].derivative != nullptr) {
      found.further.push_back(i);
    } else if (properties[i].line == nullptr || subcommand.saturation != nullptr) {
      found.usual.push_back(i);
    }
  }
  return found;
}

std::vector<Result> results_of(const Subcommand& subcommand,
                               const std::span<const std::size_t> wanted) {
  std::vector<Result> results;
  for (const std::size_t i : wanted) {
    const Property& p = properties[i];
    const bool shared = subcommand.saturation == nullptr || p.line != nullptr ||
                        &p == property("temp") || &p == property("pres");
    results.push_back({i, 0, fmt::format("{}{}", p.name, shared ? "" : "_liq")});
    if (!shared) results.push_back({i, 1, fmt::format("{}_vap", p.name)});
  }
  return results;
}

StateSolver::StateSolver(const Subcommand& subcommand, const std::span<const Result> results)
    : subcommand_(&subcommand) {
  out_.liq_derivatives = &derivatives_[0];
  out_.vap_derivatives = &derivatives_[1];
  for (const auto& [index, phase, name] : results) {
    const Property& p = properties[index];
    double* const value = &state_.values[phase][index];
    // g++ 12 has `.*` act on a copy of what `?:` selects, but not on that of a reference.
    OutputSet& outputs = phase == 0 ? out_.liq : out_.vap;
    if (p.output != nullptr) outputs.*p.output = value;
    if (p.derivative != nullptr) derivatives_[phase].*p.derivative = value;
    if (p.line != nullptr) out_.*p.line = value;
  }
}

const State& StateSolver::operator()(const std::span<const double> inputs) noexcept {
  if (subcommand_->saturation != nullptr) {
    subcommand_->saturation(inputs[0], state_.ierr, out_);
  } else {
    subcommand_->pair(inputs[0], inputs[1], state_.ierr, out_.liq, derivatives_[0]);
  }
  return state_;
}

std::string message(const std::int32_t ierr) {
  const auto padded = co2_error_message(ierr);
  const std::string_view text(padded.data(), padded.size());
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace co2_properties::tool
