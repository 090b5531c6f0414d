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

/// \name Entries for arrays
///
/// Each of these does for every state i what the entry without `_batch` does, to the bit: it writes
/// ierr[i] and element i of the present outputs. A state that is in error gets its code and +0.0
/// and leaves the others alone.
///
/// An output may be the very array of an input, with the same data and stride. Otherwise no array
/// that is written may overlap another one or, with stride 0, itself: the order is not defined.
///
/// Returns false, and touches nothing, if the length of the second input, of `ierr` or of a present
/// output differs from that of the first input; else true.
/// \{

/// States from temperature, K, and density, kg/m3: `co2_td`.
bool co2_td_batch(StridedSpan<const double> temp, StridedSpan<const double> dens,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;

/// States from temperature, K, and pressure, kPa: `co2_tp`.
bool co2_tp_batch(StridedSpan<const double> temp, StridedSpan<const double> pres,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;

/// States from pressure, kPa, and specific enthalpy, kJ/kg: `co2_ph`.
bool co2_ph_batch(StridedSpan<const double> pres, StridedSpan<const double> enth,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;

/// States from pressure, kPa, and specific entropy, kJ/(kg K): `co2_ps`.
bool co2_ps_batch(StridedSpan<const double> pres, StridedSpan<const double> entr,
                  StridedSpan<std::int32_t> ierr, const BatchOutputSet& out) noexcept;

/// \}

}  // namespace co2_properties

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif
