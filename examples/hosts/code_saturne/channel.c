/* Laminar channel of carbon dioxide at 8 MPa, heated through the pseudo-critical temperature. The
   solver transports enthalpy, J/kg; all properties come from the reference pressure and it. */
#include <co2_properties.h>
#include <cs_headers.h>
#include <stdio.h>

static const double pres = 8000.0;      /* kPa */
static const double inlet_temp = 300.0; /* K; the pseudo-critical temperature is 307.8 K */
static const double mass_flux = 25.0;   /* kg/(m2 s) */
static const double wall_heat = 3750.0; /* W/m2, each wall */
static const char inlet[] = "1", outlet[] = "2", walls[] = "3", sides[] = "4"; /* of mesh.py */

void cs_user_model(void) {
  cs_get_glob_turb_model()->iturb = CS_TURB_NONE;
  cs_get_glob_thermal_model()->itherm = CS_THERMAL_MODEL_ENTHALPY;
  cs_parameters_add_property("co2_temperature", 1, CS_MESH_LOCATION_CELLS);
}

void cs_user_parameters(cs_domain_t* domain) {
  double dens, cp, visc;
  int32_t ierr;
  co2_tp_select(&inlet_temp, &pres, &ierr,
                &(co2_output_set){.dens = &dens, .cp = &cp, .visc = &visc});
  cs_fluid_properties_t* fluid = cs_get_glob_fluid_properties();
  fluid->p0 = 1e3 * pres;
  fluid->t0 = inlet_temp;
  fluid->ro0 = dens;
  fluid->cp0 = 1e3 * cp;
  fluid->viscl0 = 1e-6 * visc;
  fluid->irovar = fluid->ivivar = 1; /* fields, not constants */
  fluid->icp = 0;
  cs_field_set_key_int(CS_F_(h), cs_field_key_id("diffusivity_id"), 0);

  domain->time_step->dt_ref = 0.5; /* s */
  domain->time_step->nt_max = 150;
}

static double inlet_enthalpy(void) {
  double enth;
  int32_t ierr;
  co2_tp_select(&inlet_temp, &pres, &ierr, &(co2_output_set){.enth = &enth});
  return 1e3 * enth;
}

void cs_user_initialization(cs_domain_t* domain) {
  const double enth = inlet_enthalpy();
  for (cs_lnum_t c = 0; c < domain->mesh->n_cells; ++c) CS_F_(h)->val[c] = enth;
}

/* One call for all cells. The library has kPa, kJ/kg, kJ/(kg K) and uPa s. */
void cs_user_physical_properties(cs_domain_t* domain) {
  const size_t count = domain->mesh->n_cells;
  double* temp = cs_field_by_name("co2_temperature")->val;
  double *dens = CS_F_(rho)->val, *cp = CS_F_(cp)->val, *visc = CS_F_(mu)->val;
  const int diffusivity = cs_field_get_key_int(CS_F_(h), cs_field_key_id("diffusivity_id"));
  double* cond = cs_field_by_id(diffusivity)->val;
  for (size_t c = 0; c < count; ++c) temp[c] = 1e-3 * CS_F_(h)->val[c];

  int32_t* codes;
  BFT_MALLOC(codes, count, int32_t);
  co2_ph_batch(&count, &(co2_inputs){&pres, 0}, &(co2_inputs){temp, 1}, &(co2_codes){codes, 1},
               &(co2_batch_output_set){.temp = {temp, 1},
                                       .dens = {dens, 1},
                                       .cp = {cp, 1},
                                       .visc = {visc, 1},
                                       .cond = {cond, 1}});
  for (size_t c = 0; c < count; ++c) {
    char text[256] = {0};
    if (codes[c] != 0) {
      co2_error_message(&codes[c], text);
      bft_error(__FILE__, __LINE__, 0, "enthalpy %g J/kg: %s", CS_F_(h)->val[c], text);
    }
    cp[c] *= 1e3;
    visc[c] *= 1e-6;
    cond[c] /= cp[c]; /* what multiplies the gradient of the enthalpy */
  }
  BFT_FREE(codes);
}

void cs_user_boundary_conditions(int nvar, int bc_type[], int icodcl[], cs_real_t rcodcl[]) {
  const cs_lnum_t faces = cs_glob_mesh->n_b_faces;
  const int variable = cs_field_key_id("variable_id");
  const int h = cs_field_get_key_int(CS_F_(h), variable) - 1;
  const int u = cs_field_get_key_int(CS_F_(vel), variable) - 1;
  const double enth = inlet_enthalpy();
  const char* const groups[] = {inlet, outlet, walls, sides};
  const int types[] = {CS_INLET, CS_OUTLET, CS_SMOOTHWALL, CS_SYMMETRY};
  cs_lnum_t *list, count;
  BFT_MALLOC(list, faces, cs_lnum_t);
  for (int group = 0; group < 4; ++group) {
    cs_selector_get_b_face_list(groups[group], &count, list);
    for (cs_lnum_t k = 0; k < count; ++k) {
      const cs_lnum_t face = list[k];
      bc_type[face] = types[group];
      if (types[group] == CS_INLET) {
        rcodcl[u * faces + face] = mass_flux / CS_F_(rho_b)->val[face];
        rcodcl[(u + 1) * faces + face] = rcodcl[(u + 2) * faces + face] = 0;
        rcodcl[h * faces + face] = enth;
      } else if (types[group] == CS_SMOOTHWALL) {
        icodcl[h * faces + face] = 3; /* a flux, negative into the fluid */
        rcodcl[(2 * nvar + h) * faces + face] = -wall_heat;
      }
    }
  }
  BFT_FREE(list);
}

/* The same in Fortran, which has to be there if there is no file of the graphical interface. */
void cs_f_user_boundary_conditions_(void) {}

/* What crosses the boundary at the end, W, and the cells of this process, for profiles.py. */
void cs_user_extra_operations(cs_domain_t* domain) {
  if (domain->time_step->nt_cur < domain->time_step->nt_max) return;
  const cs_mesh_t* mesh = domain->mesh;
  const cs_mesh_quantities_t* sizes = domain->mesh_quantities;
  const int flux = cs_field_get_key_int(CS_F_(h), cs_field_key_id("boundary_mass_flux_id"));
  double sums[3] = {0}; /* enthalpy in and out, heat of the walls */
  const char* const groups[] = {inlet, outlet, walls};
  cs_lnum_t *list, count;
  BFT_MALLOC(list, mesh->n_b_faces, cs_lnum_t);
  for (int group = 0; group < 3; ++group) {
    cs_selector_get_b_face_list(groups[group], &count, list);
    for (cs_lnum_t k = 0; k < count; ++k) {
      const cs_lnum_t face = list[k];
      const double mass = cs_field_by_id(flux)->val[face];
      const double enth = CS_F_(h)->val[mesh->b_face_cells[face]];
      sums[group] += group == 0   ? -mass * inlet_enthalpy()
                     : group == 1 ? mass * enth
                                  : wall_heat * sizes->b_face_surf[face];
    }
  }
  BFT_FREE(list);
  cs_parall_sum(3, CS_DOUBLE, sums);

  char name[32];
  snprintf(name, sizeof name, "cells_%d.csv", cs_glob_rank_id > 0 ? cs_glob_rank_id : 0);
  FILE* file = fopen(name, "w");
  fprintf(file, "# %.17g %.17g %.17g\n", sums[0], sums[1], sums[2]);
  for (cs_lnum_t c = 0; c < mesh->n_cells; ++c) {
    fprintf(file, "%.9g,%.9g,%.9g,%.9g,%.9g\n", sizes->cell_cen[3 * c], sizes->cell_cen[3 * c + 1],
            CS_F_(vel)->val[3 * c], cs_field_by_name("co2_temperature")->val[c],
            CS_F_(rho)->val[c]);
  }
  fclose(file);
}
