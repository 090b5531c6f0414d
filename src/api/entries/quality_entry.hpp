#pragma once
// Mixtures given by their quality: what `co2_tx` and `co2_px` share.

#include "api/entries/saturation.hpp"

namespace co2_properties {

/// \tparam Pair  of inputs, see saturation.hpp
template <class Pair>
void run_quality(const double given, const double qual, std::int32_t& ierr,
                 const OutputSets out) noexcept {
  using Given = typename Pair::Given;
  const std::int32_t code = code_on_line<Given>(given, Pair::codes.line);
  if (code != status::success) return fail(code, ierr, out);
  if (qual < 0.0 || qual > 1.0) return fail(Pair::codes.quality_outside, ierr, out);
  if (!(qual == qual)) return fail(Pair::codes.line.not_a_number, ierr, out);
  const auto state = Given::state(given, TieLine<double>::at);
  write_mixture_of_quality<Pair>(OutputWriter(out), state.temp, qual, state.line);
  ierr = code_of_mixture(Pair::codes.two_phase, out);
}

}  // namespace co2_properties
