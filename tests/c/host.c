/* A host in C99: names outputs, leaves others out, solves an isobar, reads a message. Its exit
   status is the number of checks that failed. */

#include <math.h>
#include <stdio.h>
#include <string.h>

#include "co2_properties.h"

static int expect(int truth, const char* what) {
  if (!truth) printf("failed: %s\n", what);
  return !truth;
}

int main(void) {
  const double temp = 310.0, pres = 9000.0;
  int32_t ierr = 77;
  int failures = 0;

  double dens = 0.0, enth = 0.0, inte = 0.0;
  co2_tp_select(&temp, &pres, &ierr,
                &(co2_output_set){.dens = &dens, .inte = &inte, .enth = &enth});
  failures += expect(ierr == 0, "co2_tp_select succeeds");
  failures += expect(fabs(enth - (inte + pres / dens)) < 1e-8 * enth, "h = u + p/rho");

  double again = 0.0;
  co2_td(&temp, &dens, &ierr, NULL, &again, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL,
         NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
  failures += expect(ierr == 0 && fabs(again - pres) < 1e-8 * pres, "co2_td comes back to p");

  double temps[3] = {300.0, 310.0, 2000.0}, denses[3];
  int32_t codes[3];
  const size_t count = 3;
  const co2_inputs temp_in = {temps, 1}, pres_in = {&pres, 0};
  const co2_codes ierr_out = {codes, 1};
  const co2_batch_output_set out = {.dens = {denses, 1}};
  co2_tp_batch(&count, &temp_in, &pres_in, &ierr_out, &out);
  failures += expect(codes[0] == 0 && codes[1] == 0 && codes[2] == 202, "codes of an isobar");
  failures += expect(denses[0] > denses[1] && denses[1] == dens && denses[2] == 0.0, "densities");

  char text[256] = {0};
  co2_error_message(&codes[2], text);
  failures += expect(strncmp(text, "CO2_TP: specified temperature above", 35) == 0, "message");
  failures += expect(strlen(text) == 255, "length of the message");
  return failures;
}
