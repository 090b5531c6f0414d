/* .Call interface of R: co2_call(entry, a, b, names) gives a list of vectors, `ierr` the last. */
#include <co2_properties.h>
/* Headers of R: nothing above may be taken for their short names. */
#define R_NO_REMAP
#include <Rinternals.h>
#include <string.h>

typedef void entry_function(const size_t*, const co2_inputs*, const co2_inputs*, const co2_codes*,
                            const co2_batch_output_set*);

static const struct {
  const char* name;
  entry_function* function;
} entries[] = {
    /* entries: begin, written by scripts/generate_entries */
    {"td", co2_td_batch}, {"tp", co2_tp_batch}, {"ph", co2_ph_batch}, {"ps", co2_ps_batch},
    {"du", co2_du_batch}, {"dh", co2_dh_batch}, {"ds", co2_ds_batch}, {"dp", co2_dp_batch},
    {"hs", co2_hs_batch}, {"pu", co2_pu_batch}, {"ts", co2_ts_batch}, {"tx", co2_tx_batch},
    {"px", co2_px_batch},
    /* entries: end */
};

static const struct {
  const char* name;
  size_t offset;
} outputs[] = {
    /* outputs: begin, written by scripts/generate_outputs */
    {"temp", offsetof(co2_batch_output_set, temp)}, {"pres", offsetof(co2_batch_output_set, pres)},
    {"dens", offsetof(co2_batch_output_set, dens)}, {"svol", offsetof(co2_batch_output_set, svol)},
    {"qual", offsetof(co2_batch_output_set, qual)}, {"inte", offsetof(co2_batch_output_set, inte)},
    {"enth", offsetof(co2_batch_output_set, enth)}, {"entr", offsetof(co2_batch_output_set, entr)},
    {"cv", offsetof(co2_batch_output_set, cv)},     {"cp", offsetof(co2_batch_output_set, cp)},
    {"ssnd", offsetof(co2_batch_output_set, ssnd)}, {"visc", offsetof(co2_batch_output_set, visc)},
    {"cond", offsetof(co2_batch_output_set, cond)}, {"dpdd", offsetof(co2_batch_output_set, dpdd)},
    {"dpdt", offsetof(co2_batch_output_set, dpdt)}, {"dhdd", offsetof(co2_batch_output_set, dhdd)},
    {"dhdt", offsetof(co2_batch_output_set, dhdt)}, {"dsdd", offsetof(co2_batch_output_set, dsdd)},
    {"dsdt", offsetof(co2_batch_output_set, dsdt)},
    /* outputs: end */
};

#define LENGTH_OF(array) (sizeof(array) / sizeof((array)[0]))

static entry_function* find_entry(const char* name) {
  for (size_t k = 0; k < LENGTH_OF(entries); ++k) {
    if (strcmp(entries[k].name, name) == 0) return entries[k].function;
  }
  Rf_error("co2: no entry called '%s'", name);
}

static co2_outputs* find_output(co2_batch_output_set* set, const char* name) {
  for (size_t k = 0; k < LENGTH_OF(outputs); ++k) {
    if (strcmp(outputs[k].name, name) == 0) return (co2_outputs*)((char*)set + outputs[k].offset);
  }
  Rf_error("co2: no property called '%s'", name);
}

/* One value serves all states: stride 0. */
static co2_inputs inputs(SEXP values) {
  return (co2_inputs){REAL(values), Rf_xlength(values) == 1 ? 0 : 1};
}

/* `a` and `b` are of type double, of one length or one of them of length 1; co2.R sees to that. */
SEXP co2_call(SEXP entry, SEXP a, SEXP b, SEXP names) {
  const R_xlen_t count = Rf_xlength(a) == 1 ? Rf_xlength(b) : Rf_xlength(a);
  const int wanted = Rf_length(names);
  SEXP results = PROTECT(Rf_allocVector(VECSXP, wanted + 1));
  co2_batch_output_set set = {.temp = {0}};
  for (int k = 0; k < wanted; ++k) {
    SEXP values = SET_VECTOR_ELT(results, k, Rf_allocVector(REALSXP, count));
    const char* const name = CHAR(STRING_ELT(names, k));
    co2_outputs* output = find_output(&set, name);
    if (output->data != NULL) Rf_error("co2: property '%s' twice", name);
    *output = (co2_outputs){REAL(values), 1};
  }
  SEXP codes = SET_VECTOR_ELT(results, wanted, Rf_allocVector(INTSXP, count));
  const co2_inputs first = inputs(a), second = inputs(b);
  const size_t states = (size_t)count;
  find_entry(CHAR(STRING_ELT(entry, 0)))(&states, &first, &second, &(co2_codes){INTEGER(codes), 1},
                                         &set);
  UNPROTECT(1);
  return results;
}

/* Text of a status code, with blanks behind it. */
SEXP co2_message(SEXP code) {
  char text[256] = {0};
  co2_error_message(INTEGER(code), text);
  return Rf_mkString(text);
}
