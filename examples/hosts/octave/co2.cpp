#include <co2_properties.h>
#include <octave/oct.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace {

using Entry = void (*)(const size_t* count, const co2_inputs* first, const co2_inputs* second,
                       const co2_codes* ierr, const co2_batch_output_set* out);

const std::map<std::string, Entry> entries{
    /* entries: begin, written by scripts/generate_entries */
    {"td", co2_td_batch}, {"tp", co2_tp_batch}, {"ph", co2_ph_batch}, {"ps", co2_ps_batch},
    {"du", co2_du_batch}, {"dh", co2_dh_batch}, {"ds", co2_ds_batch}, {"dp", co2_dp_batch},
    {"hs", co2_hs_batch}, {"pu", co2_pu_batch}, {"ts", co2_ts_batch}, {"tx", co2_tx_batch},
    {"px", co2_px_batch},
    /* entries: end */
};

const std::map<std::string, co2_outputs co2_batch_output_set::*> outputs{
    /* outputs: begin, written by scripts/generate_outputs */
    {"temp", &co2_batch_output_set::temp}, {"pres", &co2_batch_output_set::pres},
    {"dens", &co2_batch_output_set::dens}, {"svol", &co2_batch_output_set::svol},
    {"qual", &co2_batch_output_set::qual}, {"inte", &co2_batch_output_set::inte},
    {"enth", &co2_batch_output_set::enth}, {"entr", &co2_batch_output_set::entr},
    {"cv", &co2_batch_output_set::cv},     {"cp", &co2_batch_output_set::cp},
    {"ssnd", &co2_batch_output_set::ssnd}, {"visc", &co2_batch_output_set::visc},
    {"cond", &co2_batch_output_set::cond}, {"dpdd", &co2_batch_output_set::dpdd},
    {"dpdt", &co2_batch_output_set::dpdt}, {"dhdd", &co2_batch_output_set::dhdd},
    {"dhdt", &co2_batch_output_set::dhdt}, {"dsdd", &co2_batch_output_set::dsdd},
    {"dsdt", &co2_batch_output_set::dsdt},
    /* outputs: end */
};

template <class Map>
typename Map::mapped_type find(const Map& map, const octave_value& name, const char* what) {
  const auto found = map.find(name.xstring_value("co2: %s must be a string", what));
  if (found == map.end()) error("co2: no %s called '%s'", what, name.string_value().c_str());
  return found->second;
}

/// One value serves all states: stride 0.
co2_inputs inputs(const NDArray& values) { return {values.data(), values.numel() == 1 ? 0 : 1}; }

std::string message(std::int32_t code) {
  std::string text(255, ' ');
  co2_error_message(&code, &text[0]);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

DEFUN_DLD(co2, args, nargout, R"([OUT1, OUT2, ..., IERR] = co2 (ENTRY, A, B, NAME1, NAME2, ...)
Properties of carbon dioxide: those of the given names, in the units of the library (K, kPa,
kg/m3, kJ/kg, kJ/(kg K), m/s, uPa s, W/(m K)).
ENTRY says what A and B are: "td", "tp", "ph", "ps", "du", "dh", "ds", "dp", "hs", "pu", "ts",
"tx" or "px"; arrays of one shape, or one of them a scalar. The results have that shape, and NaN
where there is no value, such as a heat capacity in two phases. IERR are the status codes, 0
where all is well; unless it is taken, an error in any state is an error.)") {
  const int names = args.length() - 3;
  if (names < 1 || nargout > names + 1) print_usage();
  const Entry entry = find(entries, args(0), "entry");
  const NDArray a = args(1).xarray_value("co2: A must be a real array");
  const NDArray b = args(2).xarray_value("co2: B must be a real array");
  const dim_vector shape = a.numel() == 1 ? b.dims() : a.dims();
  if (b.numel() != 1 && b.dims() != shape) error("co2: A and B must have one shape");

  std::vector<NDArray> results(names, NDArray(shape));
  co2_batch_output_set set = {};
  for (int k = 0; k < names; ++k) {
    co2_outputs& output = set.*find(outputs, args(k + 3), "property");
    if (output.data != nullptr)
      error("co2: property '%s' twice", args(k + 3).string_value().c_str());
    output = {results[k].fortran_vec(), 1};
  }
  const size_t count = shape.numel();
  std::vector<std::int32_t> codes(count);
  const co2_inputs first = inputs(a), second = inputs(b);
  const co2_codes ierr = {codes.data(), 1};
  entry(&count, &first, &second, &ierr, &set);

  const auto bad = std::find_if(codes.begin(), codes.end(), [](int code) { return code > 0; });
  if (bad != codes.end() && nargout <= names) {
    error("co2: state %td: %s", bad - codes.begin() + 1, message(*bad).c_str());
  }
  octave_value_list values;
  for (int k = 0; k < names; ++k) {
    // The library says 0 where there is no value; of all properties only the quality can be 0.
    const bool is_qual = args(k + 3).string_value() == "qual";
    for (size_t i = 0; i < count; ++i) {
      double& value = results[k](i);
      if (value == 0 && (codes[i] > 0 || !is_qual)) value = std::nan("");
    }
    values(k) = results[k];
  }
  int32NDArray status(shape);
  std::copy(codes.begin(), codes.end(), status.fortran_vec());
  values(names) = status;
  return values;
}
