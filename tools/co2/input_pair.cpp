#include "co2/input_pair.hpp"

#include "co2_properties.hpp"

namespace co2_properties::tool {
namespace {

constexpr const Property& property(const std::string_view name) {
  return properties[find_property(name)];
}

constexpr std::array<InputPair, 4> pairs = {{
    {"td", "State from temperature and density", property("temp"), property("dens"), &co2_td,
     "310 600"},
    {"tp", "State from temperature and pressure", property("temp"), property("pres"), &co2_tp,
     "310 8000"},
    {"ph", "State from pressure and enthalpy", property("pres"), property("enth"), &co2_ph,
     "8000 400"},
    {"ps", "State from pressure and entropy", property("pres"), property("entr"), &co2_ps,
     "8000 1.7"},
}};

}  // namespace

std::span<const InputPair> input_pairs() noexcept { return pairs; }

StateSolver::StateSolver(const InputPair& pair, const std::span<const std::size_t> results)
    : entry_(pair.entry) {
  for (const std::size_t i : results) outputs_.*properties[i].slot = &state_.values[i];
}

const State& StateSolver::operator()(const double first, const double second) noexcept {
  entry_(first, second, state_.ierr, outputs_);
  return state_;
}

std::string message(const std::int32_t ierr) {
  const auto padded = co2_error_message(ierr);
  const std::string_view text(padded.data(), padded.size());
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace co2_properties::tool
