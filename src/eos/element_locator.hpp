#pragma once
// The element that holds a state given by temperature and density, for one state or for several.

#include "eos/temperature_bins.hpp"

namespace co2_properties {

/// The look-up of all regions on common bins, so that lanes may lie in different ones: each bin
/// holds one break point of every region at most.
class ElementLocator {
 public:
  consteval ElementLocator(const Tiling& supercritical, const Tiling& vapour,
                           const Tiling& liquid) {
    take(Region::supercritical, supercritical);
    take(Region::vapour, vapour);
    take(Region::liquid, liquid);
  }

  /// Element of a region, 1..649. For any bits: beyond the elements the next ones, and for NaN
  /// those above all edges.
  [[nodiscard, gnu::always_inline]] std::int32_t find(const Region region, const double temp,
                                                      const double dens) const noexcept {
    const auto number = static_cast<std::int64_t>(region);
    return cells_[cell<double>(number * temp_bin_count, number * dens_bin_count,
                               temp_bins.find(temp), temp, dens)];
  }

  /// The same for lanes.
  /// \param number  of the region of each
  /// \param bin     `temp_bins.find(temp)`
  /// \param to      receives one element per lane
  template <class V>
  [[gnu::always_inline]] void find(const Ints<V>& number, const Ints<V>& bin, const V& temp,
                                   const V& dens, std::int32_t* const to) const noexcept {
    static_assert(temp_bin_count == 1024 && dens_bin_count == 512);
    const Ints<V> at = cell<V>(number << 10, number << 9, bin, temp, dens);
    for_each_lane<V>([&](const int k) CO2_INLINE { to[k] = cells_[lane(at, k)]; });
  }

 private:
  static constexpr std::int64_t most_rows = 80;  // of densities
  static constexpr std::int64_t most_columns = 36;
  static constexpr EqualBins<512> dens_bins = {0.0, 0.4};
  static constexpr std::int32_t dens_bin_count = decltype(dens_bins)::count;

  consteval void take(const Region region, const Tiling& t) {
    if (t.x_count >= most_columns || t.y_count >= most_rows) {
      refuse_table("a region with too many cells");
    }
    const auto number = static_cast<std::int64_t>(region);
    const std::int64_t first = number * most_columns * most_rows;
    temp_.take(region, t.x_edges, t.x_count, most_rows, first);
    fill_rows(dens_ + number * dens_bin_count, dens_bins, t.y_edges, t.y_count, 1);
    for (std::int32_t i = 0; i <= t.x_count; ++i) {
      for (std::int32_t j = 0; j <= t.y_count; ++j) {
        cells_[first + i * most_rows + j] = t.cells[i * (t.y_count + 1) + j];
      }
    }
  }

  template <class V>
  [[nodiscard, gnu::always_inline]] Ints<V> cell(const Ints<V>& temp_offset,
                                                 const Ints<V>& dens_offset, const Ints<V>& bin,
                                                 const V& temp, const V& dens) const noexcept {
    return temp_.find<V>(temp_offset, bin, temp, most_rows) +
           interval_in<V>(dens_, dens_bins.find(dens) + dens_offset, dens, 1);
  }

  RegionTemperatures temp_;
  BinRow<1> dens_[region_count * dens_bin_count] = {};
  std::uint16_t cells_[region_count * most_columns * most_rows] = {};
};

// Written by `tablegen elements`. The tilings by temperature, K, and density, kg/m3, hold 1-based
// elements; intervals that no element of the region covers hold the one that `vap_index_from_td`
// and its sisters promise for them. The density of the critical isochore is compared one unit in
// the last place above the edge stored in the elements, so that a state exactly on the stored edge
// belongs to the element below it.
extern const ElementLocator element_locator;
extern const Tiling supercritical_tiling;
extern const Tiling vapour_tiling;
extern const Tiling liquid_tiling;

}  // namespace co2_properties
