#pragma once
// The state entries for arrays of states.

#include "co2_properties/require_cpp20.hpp"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>

#include "co2_properties/output_set.hpp"

#if defined(__GNUC__)
#pragma GCC visibility push(default)  // see co2_properties.hpp
#endif

namespace co2_properties {

/// A caller's array with a stride: element i is data[i * stride]. Strides count elements and may be
/// negative; 0 on an input means one value for all states. Contiguous ranges convert to it; give an
/// output its size first, since an empty vector may count as absent.
template <class T>
class StridedSpan {
 public:
  /// An absent output.
  constexpr StridedSpan() noexcept = default;
  /// `size` elements, the first of them at `data`.
  constexpr StridedSpan(T* const data, const std::size_t size,
                        const std::ptrdiff_t stride = 1) noexcept
      : data_(data), size_(size), stride_(stride) {}
  /// A std::span, std::vector, array or any other contiguous range, with stride 1.
  template <class Range>
  requires std::convertible_to<Range&&, std::span<T>>
  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): this class is no contiguous range
  constexpr StridedSpan(Range&& range) noexcept {
    const std::span<T> span(range);
    data_ = span.data();
    size_ = span.size();
  }

  /// Results as inputs.
  template <class Result>
  requires std::same_as<T, const Result>
  constexpr StridedSpan(const StridedSpan<Result>& other) noexcept
      : data_(other.data()), size_(other.size()), stride_(other.stride()) {}

  [[nodiscard]] constexpr T* data() const noexcept { return data_; }                  ///< element 0
  [[nodiscard]] constexpr std::size_t size() const noexcept { return size_; }         ///< elements
  [[nodiscard]] constexpr std::ptrdiff_t stride() const noexcept { return stride_; }  ///< elements
  /// Element i, which must be less than the size.
  [[nodiscard]] constexpr T& operator[](const std::size_t i) const noexcept {
    return data_[static_cast<std::ptrdiff_t>(i) * stride_];
  }

 private:
  T* data_ = nullptr;
  std::size_t size_ = 0;
  std::ptrdiff_t stride_ = 1;
};

/// Where the results of many states go: `OutputSet` with an array for each result. One without data
/// is absent: it is neither computed nor written.
struct BatchOutputSet {
  // outputs: begin, written by scripts/generate_outputs
  StridedSpan<double> temp = {};  ///< temperature, K
  StridedSpan<double> pres = {};  ///< pressure, kPa
  StridedSpan<double> dens = {};  ///< density, kg/m3
  StridedSpan<double> svol = {};  ///< specific volume, m3/kg
  StridedSpan<double> qual = {};  ///< vapour mass fraction (998, 999: supercritical)
  StridedSpan<double> inte = {};  ///< specific internal energy, kJ/kg
  StridedSpan<double> enth = {};  ///< specific enthalpy, kJ/kg
  StridedSpan<double> entr = {};  ///< specific entropy, kJ/(kg K)
  StridedSpan<double> cv = {};    ///< isochoric heat capacity, kJ/(kg K)
  StridedSpan<double> cp = {};    ///< isobaric heat capacity, kJ/(kg K)
  StridedSpan<double> ssnd = {};  ///< speed of sound, m/s
  StridedSpan<double> visc = {};  ///< viscosity, uPa s
  StridedSpan<double> cond = {};  ///< thermal conductivity, W/(m K)
  StridedSpan<double> dpdd = {};  ///< dp/drho at constant temperature, kPa m3/kg
  StridedSpan<double> dpdt = {};  ///< dp/dT at constant density, kPa/K
  StridedSpan<double> dhdd = {};  ///< dh/drho at constant temperature, kJ m3/kg2
  StridedSpan<double> dhdt = {};  ///< dh/dT at constant density, kJ/(kg K)
  StridedSpan<double> dsdd = {};  ///< ds/drho at constant temperature, kJ m3/(kg2 K)
  StridedSpan<double> dsdt = {};  ///< ds/dT at constant density, kJ/(kg K2)
  // outputs: end
};

/// Where derivatives of many states go: `DerivativeSet` with an array for each.
struct BatchDerivativeSet {
  // derivatives: begin, written by scripts/generate_outputs
  StridedSpan<double> dpdd_u = {};  ///< dp/drho at constant internal energy, kPa m3/kg
  StridedSpan<double> dpdu_d = {};  ///< dp/du at constant density, kPa kg/kJ
  StridedSpan<double> dtdd_u = {};  ///< dT/drho at constant internal energy, K m3/kg
  StridedSpan<double> dtdu_d = {};  ///< dT/du at constant density, K kg/kJ
  StridedSpan<double> dddp_h = {};  ///< drho/dp at constant enthalpy, kg/(m3 kPa)
  StridedSpan<double> dddh_p = {};  ///< drho/dh at constant pressure, kg2/(m3 kJ)
  StridedSpan<double> dtdp_h =
      {};  ///< dT/dp at constant enthalpy, the Joule-Thomson coefficient, K/kPa
  StridedSpan<double> dtdh_p = {};     ///< dT/dh at constant pressure, K kg/kJ
  StridedSpan<double> dddp_s = {};     ///< drho/dp at constant entropy, kg/(m3 kPa)
  StridedSpan<double> dtdp_s = {};     ///< dT/dp at constant entropy, K/kPa
  StridedSpan<double> dhdd_p = {};     ///< dh/drho at constant pressure, kJ m3/kg2
  StridedSpan<double> dhdp_d = {};     ///< dh/dp at constant density, kJ/(kg kPa)
  StridedSpan<double> dsdd_p = {};     ///< ds/drho at constant pressure, kJ m3/(kg2 K)
  StridedSpan<double> dsdp_d = {};     ///< ds/dp at constant density, kJ/(kg K kPa)
  StridedSpan<double> dpdd_t = {};     ///< dp/drho at constant temperature, kPa m3/kg
  StridedSpan<double> dpdt_d = {};     ///< dp/dT at constant density, kPa/K
  StridedSpan<double> cv_eq = {};      ///< isochoric heat capacity, kJ/(kg K)
  StridedSpan<double> ssnd_eq = {};    ///< speed of sound, m/s
  StridedSpan<double> compr_s = {};    ///< isentropic compressibility, 1/kPa
  StridedSpan<double> compr_t = {};    ///< isothermal compressibility, 1/kPa
  StridedSpan<double> expan_p = {};    ///< isobaric expansion, 1/K
  StridedSpan<double> fundam = {};     ///< fundamental derivative of gas dynamics
  StridedSpan<double> dssnddd_t = {};  ///< dssnd/drho at constant temperature, m4/(kg s)
  StridedSpan<double> dssnddt_d = {};  ///< dssnd/dT at constant density, m/(s K)
  StridedSpan<double> dviscdd_t = {};  ///< dvisc/drho at constant temperature, uPa s m3/kg
  StridedSpan<double> dviscdt_d = {};  ///< dvisc/dT at constant density, uPa s/K
  StridedSpan<double> dconddd_t = {};  ///< dcond/drho at constant temperature, W m2/(kg K)
  StridedSpan<double> dconddt_d = {};  ///< dcond/dT at constant density, W/(m K2)
  StridedSpan<double> dqualdd_t = {};  ///< dqual/drho at constant temperature, m3/kg
  StridedSpan<double> dqualdt_d = {};  ///< dqual/dT at constant density, 1/K
  // derivatives: end
};

/// Where the results of many states of saturation go: `SaturationSet` with arrays.
struct BatchSaturationSet {
  BatchOutputSet liq = {};               ///< saturated liquid
  BatchOutputSet vap = {};               ///< saturated vapour
  StridedSpan<double> latent_heat = {};  ///< enthalpy of vaporization, kJ/kg
  StridedSpan<double> dpdt_sat = {};     ///< slope dp/dT of the saturation line, kPa/K

  const BatchDerivativeSet* liq_derivatives = nullptr;  ///< those of the liquid
  const BatchDerivativeSet* vap_derivatives = nullptr;  ///< those of the vapour
};

/// \name Entries for arrays
///
/// Each of these does for every state i what the entry without `_batch` does, to the bit: it writes
/// ierr[i] and element i of the present outputs. A state that is in error gets its code and +0.0
/// and leaves the others alone.
///
/// An output may be the very array of an input, with the same data and stride. Otherwise no array
/// that is written may overlap another one or, with stride 0, itself: the order is not defined.
///
/// Returns false, and touches nothing, if the length of another input, of `ierr` or of a present
/// output differs from that of the first input; else true. What holds for outputs holds for
/// derivatives.
/// \{

// entries: begin, written by scripts/generate_entries

/// States from temperature, K, and density, kg/m3: `co2_td`.
bool co2_td_batch(StridedSpan<const double> temp, StridedSpan<const double> dens,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_td_batch(StridedSpan<const double> temp, StridedSpan<const double> dens,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from temperature, K, and pressure, kPa: `co2_tp`.
bool co2_tp_batch(StridedSpan<const double> temp, StridedSpan<const double> pres,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_tp_batch(StridedSpan<const double> temp, StridedSpan<const double> pres,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from pressure, kPa, and specific enthalpy, kJ/kg: `co2_ph`.
bool co2_ph_batch(StridedSpan<const double> pres, StridedSpan<const double> enth,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_ph_batch(StridedSpan<const double> pres, StridedSpan<const double> enth,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from pressure, kPa, and specific entropy, kJ/(kg K): `co2_ps`.
bool co2_ps_batch(StridedSpan<const double> pres, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_ps_batch(StridedSpan<const double> pres, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from density, kg/m3, and specific internal energy, kJ/kg: `co2_du`.
bool co2_du_batch(StridedSpan<const double> dens, StridedSpan<const double> inte,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_du_batch(StridedSpan<const double> dens, StridedSpan<const double> inte,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from density, kg/m3, and specific enthalpy, kJ/kg: `co2_dh`.
bool co2_dh_batch(StridedSpan<const double> dens, StridedSpan<const double> enth,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_dh_batch(StridedSpan<const double> dens, StridedSpan<const double> enth,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from density, kg/m3, and specific entropy, kJ/(kg K): `co2_ds`.
bool co2_ds_batch(StridedSpan<const double> dens, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_ds_batch(StridedSpan<const double> dens, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from density, kg/m3, and pressure, kPa: `co2_dp`.
bool co2_dp_batch(StridedSpan<const double> dens, StridedSpan<const double> pres,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_dp_batch(StridedSpan<const double> dens, StridedSpan<const double> pres,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from specific enthalpy, kJ/kg, and specific entropy, kJ/(kg K): `co2_hs`.
bool co2_hs_batch(StridedSpan<const double> enth, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_hs_batch(StridedSpan<const double> enth, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from pressure, kPa, and specific internal energy, kJ/kg: `co2_pu`.
bool co2_pu_batch(StridedSpan<const double> pres, StridedSpan<const double> inte,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_pu_batch(StridedSpan<const double> pres, StridedSpan<const double> inte,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from temperature, K, and specific entropy, kJ/(kg K): `co2_ts`.
bool co2_ts_batch(StridedSpan<const double> temp, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_ts_batch(StridedSpan<const double> temp, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from temperature, K, and vapour mass fraction (998, 999: supercritical), -: `co2_tx`.
bool co2_tx_batch(StridedSpan<const double> temp, StridedSpan<const double> qual,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_tx_batch(StridedSpan<const double> temp, StridedSpan<const double> qual,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;

/// States from pressure, kPa, and vapour mass fraction (998, 999: supercritical), -: `co2_px`.
bool co2_px_batch(StridedSpan<const double> pres, StridedSpan<const double> qual,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;
bool co2_px_batch(StridedSpan<const double> pres, StridedSpan<const double> qual,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out,
                  const BatchDerivativeSet& derivatives) noexcept;
// entries: end

/// States of saturation from temperature, K: `co2_sat_t`.
bool co2_sat_t_batch(StridedSpan<const double> temp, StridedSpan<std::int32_t> ierr,
                     const BatchSaturationSet& out) noexcept;

/// States of saturation from pressure, kPa: `co2_sat_p`.
bool co2_sat_p_batch(StridedSpan<const double> pres, StridedSpan<std::int32_t> ierr,
                     const BatchSaturationSet& out) noexcept;

/// \}

}  // namespace co2_properties

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif
