#pragma once
// The temperature bins that all look-ups by temperature share.

#include "cells/axis.hpp"
#include "co2_properties/limits.hpp"

namespace co2_properties {

/// Sixteen bins in a doubling of the distance from 304.1 K, next to which edges lie closest: no two
/// of a region lie in one bin.
inline constexpr auto temp_bins = DistanceBins<1024, 4>::around(304.1, temp_max - temp_min);
inline constexpr std::int32_t temp_bin_count = decltype(temp_bins)::count;

/// The three regions that have tilings of their own.
enum class Region : std::int64_t { supercritical, vapour, liquid };
inline constexpr std::int32_t region_count = 3;

/// Break points of temperature of all three regions.
class RegionTemperatures {
 public:
  /// Fills the rows of a region.
  /// \param first  index of its first interval
  consteval void take(const Region region, const double* const edges, const std::int32_t count,
                      const std::int64_t stride, const std::int64_t first) {
    BinRow<1>* const rows = rows_ + offset_of(region);
    fill_rows(rows, temp_bins, edges, count, stride);
    for (std::int32_t b = 0; b < temp_bin_count; ++b) rows[b].below += first;
  }

  /// Offset of a region, by which lanes tell theirs.
  [[nodiscard]] static constexpr std::int64_t offset_of(const Region region) noexcept {
    return static_cast<std::int64_t>(region) * temp_bin_count;
  }

  /// `first` of the region plus the number of edges that do not lie above the temperature times
  /// `stride`.
  /// \param bin  of the temperature
  template <class V>
  [[nodiscard, gnu::always_inline]] Ints<V> find(const Ints<V>& offset, const Ints<V>& bin,
                                                 const V& temp,
                                                 const std::int64_t stride) const noexcept {
    return interval_in<V>(rows_, bin + offset, temp, stride);
  }

 private:
  BinRow<1> rows_[region_count * temp_bin_count] = {};
};

}  // namespace co2_properties
