#include "api/batch.hpp"

#include "api/co2_properties.hpp"

namespace co2_properties {
namespace {

using Output = StridedSpan<double>;
using Input = StridedSpan<const double>;
using Codes = StridedSpan<std::int32_t>;

struct OutputPair {
  Output BatchOutputSet::*array;
  double* OutputSet::*value;
};
constexpr OutputPair output_pairs[] = {
    {&BatchOutputSet::temp, &OutputSet::temp}, {&BatchOutputSet::pres, &OutputSet::pres},
    {&BatchOutputSet::dens, &OutputSet::dens}, {&BatchOutputSet::svol, &OutputSet::svol},
    {&BatchOutputSet::qual, &OutputSet::qual}, {&BatchOutputSet::inte, &OutputSet::inte},
    {&BatchOutputSet::enth, &OutputSet::enth}, {&BatchOutputSet::entr, &OutputSet::entr},
    {&BatchOutputSet::cv, &OutputSet::cv},     {&BatchOutputSet::cp, &OutputSet::cp},
    {&BatchOutputSet::ssnd, &OutputSet::ssnd}, {&BatchOutputSet::visc, &OutputSet::visc},
    {&BatchOutputSet::cond, &OutputSet::cond}, {&BatchOutputSet::dpdd, &OutputSet::dpdd},
    {&BatchOutputSet::dpdt, &OutputSet::dpdt}, {&BatchOutputSet::dhdd, &OutputSet::dhdd},
    {&BatchOutputSet::dhdt, &OutputSet::dhdt}, {&BatchOutputSet::dsdd, &OutputSet::dsdd},
    {&BatchOutputSet::dsdt, &OutputSet::dsdt}};
static_assert(sizeof output_pairs / sizeof(OutputPair) * sizeof(double*) == sizeof(OutputSet));

bool lengths_agree(const Input& first, const Input& second, const Codes& ierr,
                   const BatchOutputSet& out) noexcept {
  bool agree = second.size() == first.size() && ierr.size() == first.size();
  for (const auto& [array, value] : output_pairs) {
    const Output& output = out.*array;
    if (output.data() != nullptr) agree = agree && output.size() == first.size();
  }
  return agree;
}

OutputSet outputs_of(const BatchOutputSet& out, const std::size_t i) noexcept {
  OutputSet one;
  for (const auto& [array, value] : output_pairs) {
    const Output& output = out.*array;
    if (output.data() != nullptr) one.*value = &output[i];
  }
  return one;
}

using Entry = void (*)(const double&, const double&, std::int32_t&, const OutputSet&) noexcept;

bool run(const Entry entry, const Input& first, const Input& second, const Codes& ierr,
         const BatchOutputSet& out) noexcept {
  if (!lengths_agree(first, second, ierr, out)) return false;
  for (std::size_t i = 0; i < first.size(); ++i) {
    entry(first[i], second[i], ierr[i], outputs_of(out, i));
  }
  return true;
}

}  // namespace

bool co2_td_batch(const Input temp, const Input dens, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(co2_td, temp, dens, ierr, out);
}

bool co2_tp_batch(const Input temp, const Input pres, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(co2_tp, temp, pres, ierr, out);
}

bool co2_ph_batch(const Input pres, const Input enth, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(co2_ph, pres, enth, ierr, out);
}

bool co2_ps_batch(const Input pres, const Input entr, const Codes ierr,
                  const BatchOutputSet& out) noexcept {
  return run(co2_ps, pres, entr, ierr, out);
}

}  // namespace co2_properties
