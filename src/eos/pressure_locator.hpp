#pragma once
// The element that holds a state given by temperature and pressure, for one state or for several.

#include "eos/isochore_curve.hpp"
#include "eos/temperature_bins.hpp"

namespace co2_properties {

/// The elements of a region in intervals of temperature: in each they are stacked, from low to high
/// density, and the curves between them are in ascending order of pressure.
struct PressureTiling {
  const double* temp_edges;
  std::int32_t edge_count;
  const std::uint16_t* first;  ///< row with which an interval starts; one more than intervals
  const TpRow* rows;           ///< of all regions
  const IsochoreCurve* curves;
};

/// How pressures are sorted within an interval of temperature: by p - slope (T - temp0) around the
/// closest pair of curves, with the slope of that pair, and for the fan of the others, which the
/// steeper rise the higher they lie, over 1 + fan (T - temp0), as far as its series goes to second
/// order: that is positive anywhere. So sheared, a curve stays within few bins while it crosses the
/// interval, and most bins lie in one element as a whole.
struct alignas(32) Shear {
  double temp0;
  double slope;
  double center;
  double fan;  ///< 1/K

  template <class V>
  [[nodiscard, gnu::always_inline]] static constexpr V apply(const V& temp0, const V& slope,
                                                             const V& center, const V& fan,
                                                             const V& temp,
                                                             const V& pres) noexcept {
    const V offset = temp - temp0;
    const V spread = fan * offset;
    return (pres - slope * offset - center) * (1.0 - spread * (1.0 - spread));
  }
  [[nodiscard]] constexpr double operator()(const double temp, const double pres) const noexcept {
    return apply<double>(temp0, slope, center, fan, temp, pres);
  }
};

/// Bins of sheared pressures, kPa.
inline constexpr auto sheared_bins = DistanceBins<512, 4>::around(0.0, pres_max);
inline constexpr std::int32_t sheared_bin_count = decltype(sheared_bins)::count;

/// What the index says of a bin: the element that holds all of it; from `mixed` on the first of the
/// two curves that decide; or that there are more of them.
struct PressureEntry {
  static constexpr std::uint16_t mixed = 0x8000;
  static constexpr std::uint16_t crowded = 0xffff;
};
static_assert(element_count < PressureEntry::mixed);

/// Number of the interval of temperature, those of all regions counted through.
[[nodiscard]] consteval RegionTemperatures count_intervals(const PressureTiling& supercritical,
                                                           const PressureTiling& vapour,
                                                           const PressureTiling& liquid) {
  RegionTemperatures all;
  all.take(Region::supercritical, supercritical.temp_edges, supercritical.edge_count, 1, 0);
  const std::int32_t first_vapour = supercritical.edge_count + 1;
  all.take(Region::vapour, vapour.temp_edges, vapour.edge_count, 1, first_vapour);
  const std::int32_t first_liquid_interval = first_vapour + vapour.edge_count + 1;
  all.take(Region::liquid, liquid.temp_edges, liquid.edge_count, 1, first_liquid_interval);
  return all;
}

/// The look-up of all regions, with the index that `tablegen tp_curves` makes: numbers without
/// pointers, so that they can be copied to a device.
struct PressureLocator {
  static constexpr std::int32_t most_intervals = 89;
  static constexpr std::int32_t most_rows = 1832;
  static constexpr std::int32_t most_curves = 731;

  RegionTemperatures intervals;
  Shear shears[most_intervals];
  std::uint16_t entries[most_intervals * sheared_bin_count];
  std::uint16_t first[most_intervals + 1];  ///< row with which an interval starts
  TpRow rows[most_rows];
  IsochoreCurve curves[most_curves];

  /// Element of a region for lanes within its temperatures and the pressures of the range.
  /// \param number  of the region of each
  /// \param bin     `temp_bins.find(temp)`
  /// \param to      receives one element per lane
  template <class V>
  [[gnu::always_inline]] void find(const Ints<V>& number, const Ints<V>& bin, const V& temp,
                                   const V& pres, std::int32_t* const to) const noexcept {
    static_assert(temp_bin_count == 1024 && sheared_bin_count == 512);
    const Ints<V> interval = intervals.find<V>(number << 10, bin, temp, 1);
    Rows<V> at;
    for_each_lane<V>([&](const int k) CO2_INLINE { at[k] = &shears[lane(interval, k)].temp0; });
    const Four<V> s = load_four<V>(at);
    const Ints<V> place =
        sheared_bins.find(Shear::apply<V>(s.first, s.second, s.third, s.fourth, temp, pres)) +
        (interval << 9);
    for_each_lane<V>([&](const int k) CO2_INLINE {
      const std::uint16_t entry = entries[lane(place, k)];
      to[k] = entry < PressureEntry::mixed
                  ? entry
                  : resolve(lane(interval, k), entry, lane(number, k) == liquid_number,
                            lane(temp, k), lane(pres, k));
    });
  }

  /// Element of a region for any bits; outside its temperatures by the curves of its outermost
  /// intervals.
  [[nodiscard]] std::int32_t find(const Region region, const double temp,
                                  const double pres) const noexcept {
    const auto number = static_cast<std::int64_t>(region);
    const std::int64_t interval =
        intervals.find<double>(number * temp_bin_count, temp_bins.find(temp), temp, 1);
    const bool indexed = region == Region::supercritical ? temp >= t_crit && temp <= temp_max
                                                         : temp >= temp_min && temp <= t_crit;
    const std::uint16_t entry = indexed ? entries[sheared_bins.find(shears[interval](temp, pres)) +
                                                  interval * sheared_bin_count]
                                        : PressureEntry::crowded;
    return entry < PressureEntry::mixed
               ? entry
               : resolve(interval, entry, number == liquid_number, temp, pres);
  }

 private:
  static constexpr std::int64_t liquid_number = static_cast<std::int64_t>(Region::liquid);

  /// Not inline: sources for several instruction sets include this header, and of an inline
  /// function the linker keeps any copy.
  [[nodiscard]] std::int32_t resolve(std::int64_t interval, std::uint16_t entry, bool is_liquid,
                                     double temp, double pres) const noexcept;
};

// Written by `tablegen tp_curves`.
extern const PressureLocator pressure_locator;
extern const PressureTiling supercritical_tp_tiling;
extern const PressureTiling vapour_tp_tiling;
extern const PressureTiling liquid_tp_tiling;

}  // namespace co2_properties
