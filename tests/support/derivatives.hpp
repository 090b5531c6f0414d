#pragma once

#include <array>
#include <cstddef>

#include "co2_properties/derivative_set.hpp"
#include "tests/support/outputs.hpp"

namespace co2_properties::test {

inline constexpr std::size_t derivative_count = sizeof(DerivativeSet) / sizeof(double*);

struct NamedDerivative {
  const char* name;
  double* DerivativeSet::*member;
};
/// The derivatives in their order.
inline constexpr std::array<NamedDerivative, derivative_count> all_derivatives = {{
    // derivatives: begin, written by scripts/generate_outputs
    {"dpdd_u", &DerivativeSet::dpdd_u},       {"dpdu_d", &DerivativeSet::dpdu_d},
    {"dtdd_u", &DerivativeSet::dtdd_u},       {"dtdu_d", &DerivativeSet::dtdu_d},
    {"dddp_h", &DerivativeSet::dddp_h},       {"dddh_p", &DerivativeSet::dddh_p},
    {"dtdp_h", &DerivativeSet::dtdp_h},       {"dtdh_p", &DerivativeSet::dtdh_p},
    {"dddp_s", &DerivativeSet::dddp_s},       {"dtdp_s", &DerivativeSet::dtdp_s},
    {"dhdd_p", &DerivativeSet::dhdd_p},       {"dhdp_d", &DerivativeSet::dhdp_d},
    {"dsdd_p", &DerivativeSet::dsdd_p},       {"dsdp_d", &DerivativeSet::dsdp_d},
    {"dpdd_t", &DerivativeSet::dpdd_t},       {"dpdt_d", &DerivativeSet::dpdt_d},
    {"cv_eq", &DerivativeSet::cv_eq},         {"ssnd_eq", &DerivativeSet::ssnd_eq},
    {"compr_s", &DerivativeSet::compr_s},     {"compr_t", &DerivativeSet::compr_t},
    {"expan_p", &DerivativeSet::expan_p},     {"fundam", &DerivativeSet::fundam},
    {"dssnddd_t", &DerivativeSet::dssnddd_t}, {"dssnddt_d", &DerivativeSet::dssnddt_d},
    {"dviscdd_t", &DerivativeSet::dviscdd_t}, {"dviscdt_d", &DerivativeSet::dviscdt_d},
    {"dconddd_t", &DerivativeSet::dconddd_t}, {"dconddt_d", &DerivativeSet::dconddt_d},
    {"dqualdd_t", &DerivativeSet::dqualdd_t}, {"dqualdt_d", &DerivativeSet::dqualdt_d},
    // derivatives: end
}};

/// Room for all derivatives, filled with a value that no state has.
struct Derivatives {
  std::array<double, derivative_count> value;

  Derivatives() { value.fill(Outputs::canary); }
  double operator[](double* DerivativeSet::*const member) const {
    for (std::size_t k = 0; k < derivative_count; ++k) {
      if (all_derivatives[k].member == member) return value[k];
    }
    return Outputs::canary;
  }
  DerivativeSet set() {
    DerivativeSet all;
    for (std::size_t k = 0; k < derivative_count; ++k) all.*all_derivatives[k].member = &value[k];
    return all;
  }
};

}  // namespace co2_properties::test
