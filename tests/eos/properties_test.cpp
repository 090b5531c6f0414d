#include "eos/properties.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace co2_properties {
namespace {

// A van der Waals gas with constant c: a(T, rho) = R T ln(rho / (1 - b rho)) - k rho - c T ln T.
// Its properties are known in closed form, most of them without the formulas under test.
constexpr double r = 0.19;    // kJ/(kg K)
constexpr double b = 0.0007;  // m3/kg
constexpr double k = 0.15;    // kJ m3/kg2
constexpr double c = 0.8;     // kJ/(kg K)

Derivatives<double> van_der_waals(const double temp, const double dens) {
  const double free = 1.0 - b * dens;
  Derivatives<double> d;
  d.a = r * temp * std::log(dens / free) - k * dens - c * temp * std::log(temp);
  d.a_t = r * std::log(dens / free) - c * (std::log(temp) + 1.0);
  d.a_tt = -c / temp;
  d.pv = r * temp / free - k * dens;
  d.pv_t = r / free;
  d.dpdd = r * temp / (free * free) - 2.0 * k * dens;
  return d;
}

TEST(Properties, AgreeWithTheVanDerWaalsGas) {
  for (const double temp : {350.0, 900.0}) {
    for (const double dens : {0.5, 120.0, 600.0}) {
      SCOPED_TRACE(testing::Message() << temp << " K, " << dens << " kg/m3");
      const Derivatives<double> d = van_der_waals(temp, dens);
      const double free = 1.0 - b * dens;
      const double p = dens * r * temp / free - k * dens * dens;
      const double p_d = r * temp / (free * free) - 2.0 * k * dens;
      const double p_t = dens * r / free;
      const double u = c * temp - k * dens;
      const double s = c * (std::log(temp) + 1.0) - r * std::log(dens / free);
      const double cp = c + r / (1.0 - 2.0 * k * dens * free * free / (r * temp));
      struct Case {
        const char* name;
        double value, expected;
      };
      const Case cases[] = {
          {"pressure", pressure(d, dens), p},
          {"internal energy", internal_energy(d, temp), u},
          {"enthalpy", enthalpy(d, temp), u + p / dens},
          {"entropy", entropy(d), s},
          {"cv", isochoric_heat_capacity(d, temp), c},
          {"cp", isobaric_heat_capacity(d, temp), cp},
          {"sound speed squared", speed_of_sound_squared(d), 1000.0 * cp / c * p_d},
          {"dpdt", dpdt(d, dens), p_t},
          {"dhdd", dhdd(d, temp, dens), -k + p_d / dens - p / (dens * dens)},
          {"dhdt", dhdt(d, temp), c + p_t / dens},
          {"dsdd", dsdd(d, dens), -r / (dens * free)},
          {"dsdt", dsdt(d), c / temp},
      };
      for (const Case& row : cases) {
        EXPECT_NEAR(row.value, row.expected, 1e-12 * (std::abs(row.expected) + u)) << row.name;
      }
    }
  }
}

}  // namespace
}  // namespace co2_properties
