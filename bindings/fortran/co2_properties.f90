! Thermodynamic and transport properties of carbon dioxide: the interface for Fortran.
!
!   use co2_properties
!   use, intrinsic :: iso_fortran_env, only: int32, real64
!   real(real64) :: enth, cp
!   integer(int32) :: ierr
!   call co2_tp(300.0_real64, 8000.0_real64, ierr, enth=enth, cp=cp)
!   if (ierr > 0) print *, trim(co2_error_message(ierr))
!
! Each entry takes two inputs, a status and any subset of nineteen outputs by position or keyword.
! An output that is absent is neither computed nor written. With arrays of rank 1 in place of all the
! scalars the same call serves many states.
!
! Units: temperature K, pressure kPa, density kg/m3, energies kJ/kg, entropy and heat capacities
! kJ/(kg K), speed of sound m/s, viscosity uPa s, thermal conductivity W/(m K).
! Range: 240 K to 1500 K and 1 kPa to 100000 kPa, gas, liquid, supercritical and two-phase.
!
! ierr: 0 success; negative a warning, the outputs hold what could be computed; positive an error,
! every present output is zero. co2_error_message gives the text; co2_properties.h lists the codes
! and tells what NaN does.
!
! The module only describes the C interface of the library; nothing is computed in it.
module co2_properties
  use, intrinsic :: iso_c_binding, only: c_char, c_double, c_int32_t, c_intptr_t, c_loc, &
    c_null_ptr, c_ptr, c_ptrdiff_t, c_size_t
  implicit none
  private

  ! entries: begin, written by scripts/generate_entries
  public :: co2_td, co2_td_derivatives
  public :: co2_tp, co2_tp_derivatives
  public :: co2_ph, co2_ph_derivatives
  public :: co2_ps, co2_ps_derivatives
  public :: co2_du, co2_du_derivatives
  public :: co2_dh, co2_dh_derivatives
  public :: co2_ds, co2_ds_derivatives
  public :: co2_dp, co2_dp_derivatives
  public :: co2_hs, co2_hs_derivatives
  public :: co2_pu, co2_pu_derivatives
  public :: co2_ts, co2_ts_derivatives
  public :: co2_tx, co2_tx_derivatives
  public :: co2_px, co2_px_derivatives
  ! entries: end
  public :: co2_sat_t, co2_sat_p, co2_state, co2_derivatives
  public :: co2_info, co2_error_message, zero_outputs
  public :: calc_sat_liq_dens, calc_sat_vap_dens, calc_sat_temp, calc_sat_pres
  public :: vap_index_from_td, liq_index_from_td, sc_index_from_td
  public :: vap_index_from_tp, liq_index_from_tp, sc_index_from_tp
  public :: temp_from_hp, dens_from_hp, temp_from_sp, dens_from_sp
  public :: helmholtz_derivatives, element_derivatives
  public :: calculate_visc, calculate_cond, calculate_cp, calculate_cv, calculate_ssnd
  public :: fittp, fitph

  !> Specific Helmholtz energy a, kJ/kg, and its derivatives in temperature (K) and density (kg/m3).
  type, bind(c) :: helmholtz_derivatives
    real(c_double) :: a, a_t, a_d, a_tt, a_dd, a_td
  end type

  ! co2_inputs, co2_outputs and co2_codes of the C interface, and co2_batch_output_set.
  type, bind(c) :: strided
    type(c_ptr) :: first = c_null_ptr
    integer(c_ptrdiff_t) :: stride = 1
  end type
  type, bind(c) :: batch_outputs
    type(strided) :: temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
  end type

  !> The values of all derivatives of a state.
  type, bind(c) :: co2_derivatives
    ! derivatives: begin, written by scripts/generate_outputs
    real(c_double) :: dpdd_u = 0 !< dp/drho at constant internal energy, kPa m3/kg
    real(c_double) :: dpdu_d = 0 !< dp/du at constant density, kPa kg/kJ
    real(c_double) :: dtdd_u = 0 !< dT/drho at constant internal energy, K m3/kg
    real(c_double) :: dtdu_d = 0 !< dT/du at constant density, K kg/kJ
    real(c_double) :: dddp_h = 0 !< drho/dp at constant enthalpy, kg/(m3 kPa)
    real(c_double) :: dddh_p = 0 !< drho/dh at constant pressure, kg2/(m3 kJ)
    real(c_double) :: dtdp_h = 0 !< dT/dp at constant enthalpy, the Joule-Thomson coefficient, K/kPa
    real(c_double) :: dtdh_p = 0 !< dT/dh at constant pressure, K kg/kJ
    real(c_double) :: dddp_s = 0 !< drho/dp at constant entropy, kg/(m3 kPa)
    real(c_double) :: dtdp_s = 0 !< dT/dp at constant entropy, K/kPa
    real(c_double) :: dhdd_p = 0 !< dh/drho at constant pressure, kJ m3/kg2
    real(c_double) :: dhdp_d = 0 !< dh/dp at constant density, kJ/(kg kPa)
    real(c_double) :: dsdd_p = 0 !< ds/drho at constant pressure, kJ m3/(kg2 K)
    real(c_double) :: dsdp_d = 0 !< ds/dp at constant density, kJ/(kg K kPa)
    real(c_double) :: dpdd_t = 0 !< dp/drho at constant temperature, kPa m3/kg
    real(c_double) :: dpdt_d = 0 !< dp/dT at constant density, kPa/K
    real(c_double) :: cv_eq = 0 !< isochoric heat capacity, kJ/(kg K)
    real(c_double) :: ssnd_eq = 0 !< speed of sound, m/s
    real(c_double) :: compr_s = 0 !< isentropic compressibility, 1/kPa
    real(c_double) :: compr_t = 0 !< isothermal compressibility, 1/kPa
    real(c_double) :: expan_p = 0 !< isobaric expansion, 1/K
    real(c_double) :: fundam = 0 !< fundamental derivative of gas dynamics, -
    real(c_double) :: dssnddd_t = 0 !< dssnd/drho at constant temperature, m4/(kg s)
    real(c_double) :: dssnddt_d = 0 !< dssnd/dT at constant density, m/(s K)
    real(c_double) :: dviscdd_t = 0 !< dvisc/drho at constant temperature, uPa s m3/kg
    real(c_double) :: dviscdt_d = 0 !< dvisc/dT at constant density, uPa s/K
    real(c_double) :: dconddd_t = 0 !< dcond/drho at constant temperature, W m2/(kg K)
    real(c_double) :: dconddt_d = 0 !< dcond/dT at constant density, W/(m K2)
    real(c_double) :: dqualdd_t = 0 !< dqual/drho at constant temperature, m3/kg
    real(c_double) :: dqualdt_d = 0 !< dqual/dT at constant density, 1/K
    ! derivatives: end
  end type

  integer, parameter :: derivative_count = storage_size(co2_derivatives())/64

  !> The values of all outputs of a state.
  type, bind(c) :: co2_state
    real(c_double) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
  end type
  integer, parameter :: output_count = 19

  ! co2_saturation_set and co2_batch_saturation_set of the C interface.
  type, bind(c) :: saturation_output
    type(c_ptr) :: liq(output_count) = c_null_ptr, vap(output_count) = c_null_ptr
    type(c_ptr) :: latent_heat = c_null_ptr, dpdt_sat = c_null_ptr
    type(c_ptr) :: liq_derivatives = c_null_ptr, vap_derivatives = c_null_ptr
  end type
  type, bind(c) :: saturation_outputs
    type(strided) :: liq(output_count), vap(output_count)
    type(strided) :: latent_heat, dpdt_sat
    type(c_ptr) :: liq_derivatives = c_null_ptr, vap_derivatives = c_null_ptr
  end type

  ! ---- State entries ---------------------------------------------------------------------------
  !
  ! Outputs: temp temperature, K; pres pressure, kPa; dens density, kg/m3; svol specific volume,
  ! m3/kg; qual vapour mass fraction, not clipped, 998 or 999 from the critical temperature on
  ! (below and from the critical pressure); inte, enth specific internal energy, enthalpy, kJ/kg;
  ! entr specific entropy, kJ/(kg K); cv, cp heat capacities, kJ/(kg K); ssnd speed of sound, m/s;
  ! visc viscosity, uPa s; cond thermal conductivity, W/(m K); dpdd, dpdt derivatives of the pressure
  ! by density at constant temperature and by temperature at constant density, kPa m3/kg and kPa/K;
  ! dhdd, dhdt of the enthalpy; dsdd, dsdt of the entropy.
  !
  ! The forms for arrays do the same for each element, to the bit. All arrays have the same size;
  ! sections with any stride are used in place. An optional argument ok, the last one, tells whether
  ! the sizes agree; if they do not, nothing is written and, without ok, the program stops.
  !
  ! Each entry has a sister co2_..._derivatives, which takes a co2_derivatives before the outputs, or
  ! an array of them, and fills all of its members. The array is intent(inout), since its members have
  ! initial values, which intent(out) would write even where the sizes disagree.

  ! entries: begin, written by scripts/generate_entries
  !> State from temperature, K, and density, kg/m3.
  interface co2_td
    pure subroutine co2_td_state(temp_in, dens_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_td")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp_in, dens_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_td_states
  end interface
  interface co2_td_derivatives
    module procedure co2_td_state_derivatives, co2_td_states_derivatives
  end interface

  !> State from temperature, K, and pressure, kPa.
  interface co2_tp
    pure subroutine co2_tp_state(temp_in, pres_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_tp")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp_in, pres_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_tp_states
  end interface
  interface co2_tp_derivatives
    module procedure co2_tp_state_derivatives, co2_tp_states_derivatives
  end interface

  !> State from pressure, kPa, and specific enthalpy, kJ/kg.
  interface co2_ph
    pure subroutine co2_ph_state(pres_in, enth_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_ph")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: pres_in, enth_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_ph_states
  end interface
  interface co2_ph_derivatives
    module procedure co2_ph_state_derivatives, co2_ph_states_derivatives
  end interface

  !> State from pressure, kPa, and specific entropy, kJ/(kg K).
  interface co2_ps
    pure subroutine co2_ps_state(pres_in, entr_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_ps")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: pres_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_ps_states
  end interface
  interface co2_ps_derivatives
    module procedure co2_ps_state_derivatives, co2_ps_states_derivatives
  end interface

  !> State from density, kg/m3, and specific internal energy, kJ/kg.
  interface co2_du
    pure subroutine co2_du_state(dens_in, inte_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_du")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: dens_in, inte_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_du_states
  end interface
  interface co2_du_derivatives
    module procedure co2_du_state_derivatives, co2_du_states_derivatives
  end interface

  !> State from density, kg/m3, and specific enthalpy, kJ/kg.
  interface co2_dh
    pure subroutine co2_dh_state(dens_in, enth_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_dh")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: dens_in, enth_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_dh_states
  end interface
  interface co2_dh_derivatives
    module procedure co2_dh_state_derivatives, co2_dh_states_derivatives
  end interface

  !> State from density, kg/m3, and specific entropy, kJ/(kg K).
  interface co2_ds
    pure subroutine co2_ds_state(dens_in, entr_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_ds")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: dens_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_ds_states
  end interface
  interface co2_ds_derivatives
    module procedure co2_ds_state_derivatives, co2_ds_states_derivatives
  end interface

  !> State from density, kg/m3, and pressure, kPa.
  interface co2_dp
    pure subroutine co2_dp_state(dens_in, pres_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_dp")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: dens_in, pres_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_dp_states
  end interface
  interface co2_dp_derivatives
    module procedure co2_dp_state_derivatives, co2_dp_states_derivatives
  end interface

  !> State from specific enthalpy, kJ/kg, and specific entropy, kJ/(kg K).
  interface co2_hs
    pure subroutine co2_hs_state(enth_in, entr_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_hs")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: enth_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_hs_states
  end interface
  interface co2_hs_derivatives
    module procedure co2_hs_state_derivatives, co2_hs_states_derivatives
  end interface

  !> State from pressure, kPa, and specific internal energy, kJ/kg.
  interface co2_pu
    pure subroutine co2_pu_state(pres_in, inte_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_pu")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: pres_in, inte_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_pu_states
  end interface
  interface co2_pu_derivatives
    module procedure co2_pu_state_derivatives, co2_pu_states_derivatives
  end interface

  !> State from temperature, K, and specific entropy, kJ/(kg K).
  interface co2_ts
    pure subroutine co2_ts_state(temp_in, entr_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_ts")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_ts_states
  end interface
  interface co2_ts_derivatives
    module procedure co2_ts_state_derivatives, co2_ts_states_derivatives
  end interface

  !> State from temperature, K, and vapour mass fraction (998, 999: supercritical), -.
  interface co2_tx
    pure subroutine co2_tx_state(temp_in, qual_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_tx")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp_in, qual_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_tx_states
  end interface
  interface co2_tx_derivatives
    module procedure co2_tx_state_derivatives, co2_tx_states_derivatives
  end interface

  !> State from pressure, kPa, and vapour mass fraction (998, 999: supercritical), -.
  interface co2_px
    pure subroutine co2_px_state(pres_in, qual_in, ierr, &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c, name="co2_px")
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: pres_in, qual_in
      integer(c_int32_t), intent(out) :: ierr
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
    module procedure co2_px_states
  end interface
  interface co2_px_derivatives
    module procedure co2_px_state_derivatives, co2_px_states_derivatives
  end interface

  ! entries: end

  interface
    ! entries: begin, written by scripts/generate_entries
    subroutine co2_td_batch(count, temp_in, dens_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, dens_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_td_derivatives(temp_in, dens_in, ierr, out, derivatives) &
      bind(c, name="co2_td_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: temp_in, dens_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_td_batch_derivatives(count, temp_in, dens_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, dens_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_tp_batch(count, temp_in, pres_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, pres_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_tp_derivatives(temp_in, pres_in, ierr, out, derivatives) &
      bind(c, name="co2_tp_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: temp_in, pres_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_tp_batch_derivatives(count, temp_in, pres_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, pres_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_ph_batch(count, pres_in, enth_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, enth_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_ph_derivatives(pres_in, enth_in, ierr, out, derivatives) &
      bind(c, name="co2_ph_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: pres_in, enth_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_ph_batch_derivatives(count, pres_in, enth_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, enth_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_ps_batch(count, pres_in, entr_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_ps_derivatives(pres_in, entr_in, ierr, out, derivatives) &
      bind(c, name="co2_ps_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: pres_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_ps_batch_derivatives(count, pres_in, entr_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_du_batch(count, dens_in, inte_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, inte_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_du_derivatives(dens_in, inte_in, ierr, out, derivatives) &
      bind(c, name="co2_du_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: dens_in, inte_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_du_batch_derivatives(count, dens_in, inte_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, inte_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_dh_batch(count, dens_in, enth_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, enth_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_dh_derivatives(dens_in, enth_in, ierr, out, derivatives) &
      bind(c, name="co2_dh_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: dens_in, enth_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_dh_batch_derivatives(count, dens_in, enth_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, enth_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_ds_batch(count, dens_in, entr_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_ds_derivatives(dens_in, entr_in, ierr, out, derivatives) &
      bind(c, name="co2_ds_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: dens_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_ds_batch_derivatives(count, dens_in, entr_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_dp_batch(count, dens_in, pres_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, pres_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_dp_derivatives(dens_in, pres_in, ierr, out, derivatives) &
      bind(c, name="co2_dp_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: dens_in, pres_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_dp_batch_derivatives(count, dens_in, pres_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: dens_in, pres_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_hs_batch(count, enth_in, entr_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: enth_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_hs_derivatives(enth_in, entr_in, ierr, out, derivatives) &
      bind(c, name="co2_hs_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: enth_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_hs_batch_derivatives(count, enth_in, entr_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: enth_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_pu_batch(count, pres_in, inte_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, inte_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_pu_derivatives(pres_in, inte_in, ierr, out, derivatives) &
      bind(c, name="co2_pu_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: pres_in, inte_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_pu_batch_derivatives(count, pres_in, inte_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, inte_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_ts_batch(count, temp_in, entr_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_ts_derivatives(temp_in, entr_in, ierr, out, derivatives) &
      bind(c, name="co2_ts_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: temp_in, entr_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_ts_batch_derivatives(count, temp_in, entr_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_tx_batch(count, temp_in, qual_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, qual_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_tx_derivatives(temp_in, qual_in, ierr, out, derivatives) &
      bind(c, name="co2_tx_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: temp_in, qual_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_tx_batch_derivatives(count, temp_in, qual_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, qual_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    subroutine co2_px_batch(count, pres_in, qual_in, ierr, out) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, qual_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine c_px_derivatives(pres_in, qual_in, ierr, out, derivatives) &
      bind(c, name="co2_px_derivatives")
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: pres_in, qual_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine co2_px_batch_derivatives(count, pres_in, qual_in, ierr, out, derivatives) bind(c)
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, qual_in, ierr
      type(batch_outputs), intent(in) :: out
      type(strided), intent(in) :: derivatives(*)
    end subroutine
    ! entries: end
  end interface

  ! ---- Saturation --------------------------------------------------------------------------------

  !> Both phases at a saturation temperature, K: co2_sat_t(temp_in, ierr, liq, vap, latent_heat,
  !> dpdt_sat, liq_derivatives, vap_derivatives). liq and vap are of type co2_state, the derivatives
  !> of type co2_derivatives, all members are filled; latent_heat is the enthalpy of vaporization,
  !> kJ/kg, dpdt_sat the slope of the saturation line, kPa/K. All six are optional, all may be arrays
  !> of one size.
  interface co2_sat_t
    module procedure co2_sat_t_state, co2_sat_t_states
  end interface

  !> Both phases at a saturation pressure, kPa; as co2_sat_t.
  interface co2_sat_p
    module procedure co2_sat_p_state, co2_sat_p_states
  end interface

  interface
    subroutine c_sat_t(temp_in, ierr, out) bind(c, name="co2_sat_t")
      import :: c_double, c_int32_t, saturation_output
      real(c_double), intent(in) :: temp_in
      integer(c_int32_t), intent(out) :: ierr
      type(saturation_output), intent(in) :: out
    end subroutine
    subroutine co2_sat_t_batch(count, temp_in, ierr, out) bind(c)
      import :: c_size_t, saturation_outputs, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, ierr
      type(saturation_outputs), intent(in) :: out
    end subroutine
    subroutine c_sat_p(pres_in, ierr, out) bind(c, name="co2_sat_p")
      import :: c_double, c_int32_t, saturation_output
      real(c_double), intent(in) :: pres_in
      integer(c_int32_t), intent(out) :: ierr
      type(saturation_output), intent(in) :: out
    end subroutine
    subroutine co2_sat_p_batch(count, pres_in, ierr, out) bind(c)
      import :: c_size_t, saturation_outputs, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, ierr
      type(saturation_outputs), intent(in) :: out
    end subroutine
  end interface

  ! ---- Constants, messages, outputs --------------------------------------------------------------

  interface
    !> Reference constants and limits: critical temperature, K, density, kg/m3, and pressure, kPa;
    !> range of temperature, K, and pressure, kPa; cold end of the saturation line, K and kPa.
    pure subroutine co2_info(tcrit, dcrit, pcrit, tmin, tmax, pmin, pmax, tsatmin, psatmin) bind(c)
      import :: c_double
      real(c_double), intent(out), optional :: tcrit, dcrit, pcrit, tmin, tmax, pmin, pmax, &
        tsatmin, psatmin
    end subroutine

    pure subroutine c_error_message(ierr, text) bind(c, name="co2_error_message")
      import :: c_char, c_int32_t
      integer(c_int32_t), intent(in) :: ierr
      character(kind=c_char), intent(out) :: text(255)
    end subroutine

    !> Sets every present output to zero.
    pure subroutine zero_outputs( &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt) bind(c)
      import :: c_double
      real(c_double), intent(out), optional :: &
        temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
        ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    end subroutine
  end interface

  ! ---- The parts of which the entries are made ---------------------------------------------------
  !
  ! For hosts that need one quantity and know their phase. None of them tests its arguments or can
  ! fail: outside its range a fit extrapolates, and NaN in gives NaN out.

  interface
    !> Density of the saturated liquid, kg/m3, at a temperature of 240 K to 304.1282 K.
    pure function calc_sat_liq_dens(temp) bind(c)
      import :: c_double
      real(c_double), intent(in) :: temp
      real(c_double) :: calc_sat_liq_dens
    end function
    !> Density of the saturated vapour, kg/m3, at a temperature of 240 K to 304.1282 K.
    pure function calc_sat_vap_dens(temp) bind(c)
      import :: c_double
      real(c_double), intent(in) :: temp
      real(c_double) :: calc_sat_vap_dens
    end function
    !> Saturation temperature, K, at a pressure of 1282.4835 kPa to 7377.3 kPa.
    pure function calc_sat_temp(pres) bind(c)
      import :: c_double
      real(c_double), intent(in) :: pres
      real(c_double) :: calc_sat_temp
    end function
    !> Saturation pressure, kPa, at a temperature of 240 K to 304.1282 K.
    pure function calc_sat_pres(temp) bind(c)
      import :: c_double
      real(c_double), intent(in) :: temp
      real(c_double) :: calc_sat_pres
    end function

    !> Element, 1..649, that holds a state given by temperature, K, and density, kg/m3, for each
    !> region: vapour and liquid below the critical temperature, supercritical from it on.
    pure function vap_index_from_td(temp, dens) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp, dens
      integer(c_int32_t) :: vap_index_from_td
    end function
    pure function liq_index_from_td(temp, dens) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp, dens
      integer(c_int32_t) :: liq_index_from_td
    end function
    pure function sc_index_from_td(temp, dens) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp, dens
      integer(c_int32_t) :: sc_index_from_td
    end function

    !> The same from temperature, K, and pressure, kPa, on the region's side of saturation.
    pure function vap_index_from_tp(temp, pres) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp, pres
      integer(c_int32_t) :: vap_index_from_tp
    end function
    pure function liq_index_from_tp(temp, pres) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp, pres
      integer(c_int32_t) :: liq_index_from_tp
    end function
    pure function sc_index_from_tp(temp, pres) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: temp, pres
      integer(c_int32_t) :: sc_index_from_tp
    end function

    !> Start values of co2_ph and co2_ps: temperature, K, with a flag that is 1 where the state may
    !> be two-phase, and density, kg/m3, from enthalpy, kJ/kg, or entropy, kJ/(kg K), and pressure,
    !> kPa.
    pure subroutine temp_from_hp(enth, pres, temp, flag) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: enth, pres
      real(c_double), intent(out) :: temp
      integer(c_int32_t), intent(out) :: flag
    end subroutine
    pure subroutine dens_from_hp(enth, pres, dens) bind(c)
      import :: c_double
      real(c_double), intent(in) :: enth, pres
      real(c_double), intent(out) :: dens
    end subroutine
    pure subroutine temp_from_sp(entr, pres, temp, flag) bind(c)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: entr, pres
      real(c_double), intent(out) :: temp
      integer(c_int32_t), intent(out) :: flag
    end subroutine
    pure subroutine dens_from_sp(entr, pres, dens) bind(c)
      import :: c_double
      real(c_double), intent(in) :: entr, pres
      real(c_double), intent(out) :: dens
    end subroutine

    !> Helmholtz energy and its derivatives from element e, 1..649 (not tested), at a temperature,
    !> K, and a density, kg/m3.
    pure function element_derivatives(e, temp, dens) bind(c)
      import :: c_double, c_int32_t, helmholtz_derivatives
      integer(c_int32_t), intent(in) :: e
      real(c_double), intent(in) :: temp, dens
      type(helmholtz_derivatives) :: element_derivatives
    end function

    !> Viscosity, uPa s, and thermal conductivity, W/(m K), of a single-phase state; heat
    !> capacities, kJ/(kg K), and speed of sound, m/s, near the critical point.
    pure subroutine calculate_visc(dens, temp, visc) bind(c)
      import :: c_double
      real(c_double), intent(in) :: dens, temp
      real(c_double), intent(out) :: visc
    end subroutine
    pure subroutine calculate_cond(dens, temp, cond) bind(c)
      import :: c_double
      real(c_double), intent(in) :: dens, temp
      real(c_double), intent(out) :: cond
    end subroutine
    pure subroutine calculate_cp(dens, temp, cp) bind(c)
      import :: c_double
      real(c_double), intent(in) :: dens, temp
      real(c_double), intent(out) :: cp
    end subroutine
    pure subroutine calculate_cv(dens, temp, cv) bind(c)
      import :: c_double
      real(c_double), intent(in) :: dens, temp
      real(c_double), intent(out) :: cv
    end subroutine
    pure subroutine calculate_ssnd(dens, temp, ssnd) bind(c)
      import :: c_double
      real(c_double), intent(in) :: dens, temp
      real(c_double), intent(out) :: ssnd
    end subroutine

    !> co2_tp and co2_ph with fixed arguments: viscosity in Pa s, quality within [0, 1]. On an error
    !> they print the message and end the program. Callable without this module, too.
    subroutine fittp(temp, pres, enth, dens, cv, cp, cond, visc) bind(c, name="fittp_")
      import :: c_double
      real(c_double), intent(in) :: temp, pres
      real(c_double), intent(out) :: enth, dens, cv, cp, cond, visc
    end subroutine
    subroutine fitph(pres, enth, temp, dens, cv, cp, cond, visc, qual) bind(c, name="fitph_")
      import :: c_double
      real(c_double), intent(in) :: pres, enth
      real(c_double), intent(out) :: temp, dens, cv, cp, cond, visc, qual
    end subroutine
  end interface

contains

  !> Text of a status code, padded with blanks.
  pure function co2_error_message(ierr) result(text)
    integer(c_int32_t), intent(in) :: ierr
    character(len=255) :: text
    call c_error_message(ierr, text)
  end function

  ! entries: begin, written by scripts/generate_entries
  subroutine co2_td_states(temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), dens_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(dens_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_td_batch(count, inputs(temp_in), inputs(dens_in), codes(ierr), out)
  end subroutine

  subroutine co2_td_state_derivatives(temp_in, dens_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: temp_in, dens_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_td_derivatives(temp_in, dens_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_td_states_derivatives(temp_in, dens_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), dens_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(dens_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_td_batch_derivatives(count, inputs(temp_in), inputs(dens_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_tp_states(temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), pres_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(pres_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_tp_batch(count, inputs(temp_in), inputs(pres_in), codes(ierr), out)
  end subroutine

  subroutine co2_tp_state_derivatives(temp_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: temp_in, pres_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_tp_derivatives(temp_in, pres_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_tp_states_derivatives(temp_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), pres_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(pres_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_tp_batch_derivatives(count, inputs(temp_in), inputs(pres_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_ph_states(pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), enth_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(enth_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_ph_batch(count, inputs(pres_in), inputs(enth_in), codes(ierr), out)
  end subroutine

  subroutine co2_ph_state_derivatives(pres_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: pres_in, enth_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_ph_derivatives(pres_in, enth_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_ph_states_derivatives(pres_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), enth_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(enth_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_ph_batch_derivatives(count, inputs(pres_in), inputs(enth_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_ps_states(pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_ps_batch(count, inputs(pres_in), inputs(entr_in), codes(ierr), out)
  end subroutine

  subroutine co2_ps_state_derivatives(pres_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: pres_in, entr_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_ps_derivatives(pres_in, entr_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_ps_states_derivatives(pres_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_ps_batch_derivatives(count, inputs(pres_in), inputs(entr_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_du_states(dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), inte_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(inte_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_du_batch(count, inputs(dens_in), inputs(inte_in), codes(ierr), out)
  end subroutine

  subroutine co2_du_state_derivatives(dens_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: dens_in, inte_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_du_derivatives(dens_in, inte_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_du_states_derivatives(dens_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), inte_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(inte_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_du_batch_derivatives(count, inputs(dens_in), inputs(inte_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_dh_states(dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), enth_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(enth_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_dh_batch(count, inputs(dens_in), inputs(enth_in), codes(ierr), out)
  end subroutine

  subroutine co2_dh_state_derivatives(dens_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: dens_in, enth_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_dh_derivatives(dens_in, enth_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_dh_states_derivatives(dens_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), enth_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(enth_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_dh_batch_derivatives(count, inputs(dens_in), inputs(enth_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_ds_states(dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_ds_batch(count, inputs(dens_in), inputs(entr_in), codes(ierr), out)
  end subroutine

  subroutine co2_ds_state_derivatives(dens_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: dens_in, entr_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_ds_derivatives(dens_in, entr_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_ds_states_derivatives(dens_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_ds_batch_derivatives(count, inputs(dens_in), inputs(entr_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_dp_states(dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), pres_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(pres_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_dp_batch(count, inputs(dens_in), inputs(pres_in), codes(ierr), out)
  end subroutine

  subroutine co2_dp_state_derivatives(dens_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: dens_in, pres_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_dp_derivatives(dens_in, pres_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_dp_states_derivatives(dens_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(:), pres_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(dens_in, kind=c_size_t)
    agree = size(pres_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_dp_batch_derivatives(count, inputs(dens_in), inputs(pres_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_hs_states(enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(enth_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_hs_batch(count, inputs(enth_in), inputs(entr_in), codes(ierr), out)
  end subroutine

  subroutine co2_hs_state_derivatives(enth_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: enth_in, entr_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_hs_derivatives(enth_in, entr_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_hs_states_derivatives(enth_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(enth_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_hs_batch_derivatives(count, inputs(enth_in), inputs(entr_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_pu_states(pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), inte_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(inte_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_pu_batch(count, inputs(pres_in), inputs(inte_in), codes(ierr), out)
  end subroutine

  subroutine co2_pu_state_derivatives(pres_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: pres_in, inte_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_pu_derivatives(pres_in, inte_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_pu_states_derivatives(pres_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), inte_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(inte_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_pu_batch_derivatives(count, inputs(pres_in), inputs(inte_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_ts_states(temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_ts_batch(count, inputs(temp_in), inputs(entr_in), codes(ierr), out)
  end subroutine

  subroutine co2_ts_state_derivatives(temp_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: temp_in, entr_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_ts_derivatives(temp_in, entr_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_ts_states_derivatives(temp_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), entr_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(entr_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_ts_batch_derivatives(count, inputs(temp_in), inputs(entr_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_tx_states(temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), qual_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(qual_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_tx_batch(count, inputs(temp_in), inputs(qual_in), codes(ierr), out)
  end subroutine

  subroutine co2_tx_state_derivatives(temp_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: temp_in, qual_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_tx_derivatives(temp_in, qual_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_tx_states_derivatives(temp_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(:), qual_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(qual_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_tx_batch_derivatives(count, inputs(temp_in), inputs(qual_in), codes(ierr), &
      out, slots)
  end subroutine

  subroutine co2_px_states(pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), qual_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(qual_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    if (.not. agrees(agree, ok)) return
    call co2_px_batch(count, inputs(pres_in), inputs(qual_in), codes(ierr), out)
  end subroutine

  subroutine co2_px_state_derivatives(pres_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    real(c_double), intent(in) :: pres_in, qual_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_derivatives), intent(out), target :: derivatives
    real(c_double), intent(out), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    type(c_ptr) :: out(output_count)
    call point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call c_px_derivatives(pres_in, qual_in, ierr, out, &
      slots_of(c_loc(derivatives), derivative_count))
  end subroutine

  subroutine co2_px_states_derivatives(pres_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(:), qual_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(batch_outputs) :: out
    type(strided) :: slots(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(qual_in, kind=c_size_t) == count .and. size(ierr, kind=c_size_t) == count
    call collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call collect_derivatives(slots, agree, count, derivatives)
    if (.not. agrees(agree, ok)) return
    call co2_px_batch_derivatives(count, inputs(pres_in), inputs(qual_in), codes(ierr), &
      out, slots)
  end subroutine

  ! entries: end

  subroutine co2_sat_t_state(temp_in, ierr, liq, vap, latent_heat, dpdt_sat, &
      liq_derivatives, vap_derivatives)
    real(c_double), intent(in) :: temp_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_state), intent(out), optional, target :: liq, vap
    real(c_double), intent(out), optional, target :: latent_heat, dpdt_sat
    type(co2_derivatives), intent(out), optional, target :: liq_derivatives, vap_derivatives
    type(saturation_output) :: out
    type(c_ptr), target :: of_liq(derivative_count), of_vap(derivative_count)
    if (present(liq)) out%liq = slots_of(c_loc(liq), output_count)
    if (present(vap)) out%vap = slots_of(c_loc(vap), output_count)
    if (present(latent_heat)) out%latent_heat = c_loc(latent_heat)
    if (present(dpdt_sat)) out%dpdt_sat = c_loc(dpdt_sat)
    if (present(liq_derivatives)) then
      of_liq = slots_of(c_loc(liq_derivatives), derivative_count)
      out%liq_derivatives = c_loc(of_liq)
    end if
    if (present(vap_derivatives)) then
      of_vap = slots_of(c_loc(vap_derivatives), derivative_count)
      out%vap_derivatives = c_loc(of_vap)
    end if
    call c_sat_t(temp_in, ierr, out)
  end subroutine

  subroutine co2_sat_t_states(temp_in, ierr, liq, vap, latent_heat, dpdt_sat, &
      liq_derivatives, vap_derivatives, ok)
    real(c_double), intent(in), target :: temp_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_state), intent(out), optional, target :: liq(:), vap(:)
    real(c_double), intent(out), optional, target :: latent_heat(:), dpdt_sat(:)
    type(co2_derivatives), intent(inout), optional, target :: liq_derivatives(:), &
      vap_derivatives(:)
    logical, intent(out), optional :: ok
    type(saturation_outputs) :: out
    type(strided), target :: of_liq(derivative_count), of_vap(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(temp_in, kind=c_size_t)
    agree = size(ierr, kind=c_size_t) == count
    call collect_phase(out%liq, agree, count, liq)
    call collect_phase(out%vap, agree, count, vap)
    call collect_values(out%latent_heat, agree, count, latent_heat)
    call collect_values(out%dpdt_sat, agree, count, dpdt_sat)
    call collect_derivatives(of_liq, agree, count, liq_derivatives)
    call collect_derivatives(of_vap, agree, count, vap_derivatives)
    if (present(liq_derivatives)) out%liq_derivatives = c_loc(of_liq)
    if (present(vap_derivatives)) out%vap_derivatives = c_loc(of_vap)
    if (.not. agrees(agree, ok)) return
    call co2_sat_t_batch(count, inputs(temp_in), codes(ierr), out)
  end subroutine

  subroutine co2_sat_p_state(pres_in, ierr, liq, vap, latent_heat, dpdt_sat, &
      liq_derivatives, vap_derivatives)
    real(c_double), intent(in) :: pres_in
    integer(c_int32_t), intent(out) :: ierr
    type(co2_state), intent(out), optional, target :: liq, vap
    real(c_double), intent(out), optional, target :: latent_heat, dpdt_sat
    type(co2_derivatives), intent(out), optional, target :: liq_derivatives, vap_derivatives
    type(saturation_output) :: out
    type(c_ptr), target :: of_liq(derivative_count), of_vap(derivative_count)
    if (present(liq)) out%liq = slots_of(c_loc(liq), output_count)
    if (present(vap)) out%vap = slots_of(c_loc(vap), output_count)
    if (present(latent_heat)) out%latent_heat = c_loc(latent_heat)
    if (present(dpdt_sat)) out%dpdt_sat = c_loc(dpdt_sat)
    if (present(liq_derivatives)) then
      of_liq = slots_of(c_loc(liq_derivatives), derivative_count)
      out%liq_derivatives = c_loc(of_liq)
    end if
    if (present(vap_derivatives)) then
      of_vap = slots_of(c_loc(vap_derivatives), derivative_count)
      out%vap_derivatives = c_loc(of_vap)
    end if
    call c_sat_p(pres_in, ierr, out)
  end subroutine

  subroutine co2_sat_p_states(pres_in, ierr, liq, vap, latent_heat, dpdt_sat, &
      liq_derivatives, vap_derivatives, ok)
    real(c_double), intent(in), target :: pres_in(:)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_state), intent(out), optional, target :: liq(:), vap(:)
    real(c_double), intent(out), optional, target :: latent_heat(:), dpdt_sat(:)
    type(co2_derivatives), intent(inout), optional, target :: liq_derivatives(:), &
      vap_derivatives(:)
    logical, intent(out), optional :: ok
    type(saturation_outputs) :: out
    type(strided), target :: of_liq(derivative_count), of_vap(derivative_count)
    integer(c_size_t) :: count
    logical :: agree
    count = size(pres_in, kind=c_size_t)
    agree = size(ierr, kind=c_size_t) == count
    call collect_phase(out%liq, agree, count, liq)
    call collect_phase(out%vap, agree, count, vap)
    call collect_values(out%latent_heat, agree, count, latent_heat)
    call collect_values(out%dpdt_sat, agree, count, dpdt_sat)
    call collect_derivatives(of_liq, agree, count, liq_derivatives)
    call collect_derivatives(of_vap, agree, count, vap_derivatives)
    if (present(liq_derivatives)) out%liq_derivatives = c_loc(of_liq)
    if (present(vap_derivatives)) out%vap_derivatives = c_loc(of_vap)
    if (.not. agrees(agree, ok)) return
    call co2_sat_p_batch(count, inputs(pres_in), codes(ierr), out)
  end subroutine

  !> A phase of states of saturation as C takes it; agree becomes false if the size is not count.
  subroutine collect_phase(slots, agree, count, states)
    type(strided), intent(inout) :: slots(output_count)
    logical, intent(inout) :: agree
    integer(c_size_t), intent(in) :: count
    type(co2_state), intent(inout), optional, target :: states(:)
    integer(c_ptrdiff_t) :: stride
    if (.not. present(states)) return
    agree = agree .and. size(states, kind=c_size_t) == count
    if (size(states) == 0) return
    stride = output_count
    if (size(states) > 1) stride = apart(c_loc(states(1)), c_loc(states(2)), 8)
    slots = members(c_loc(states(1)), output_count, int(stride))
  end subroutine

  !> The same of the derivatives.
  subroutine collect_derivatives(slots, agree, count, derivatives)
    type(strided), intent(inout) :: slots(derivative_count)
    logical, intent(inout) :: agree
    integer(c_size_t), intent(in) :: count
    type(co2_derivatives), intent(inout), optional, target :: derivatives(:)
    integer(c_ptrdiff_t) :: stride
    if (.not. present(derivatives)) return
    agree = agree .and. size(derivatives, kind=c_size_t) == count
    if (size(derivatives) == 0) return
    stride = derivative_count
    if (size(derivatives) > 1) stride = apart(c_loc(derivatives(1)), c_loc(derivatives(2)), 8)
    slots = members(c_loc(derivatives(1)), derivative_count, int(stride))
  end subroutine

  subroutine collect_values(slot, agree, count, values)
    type(strided), intent(inout) :: slot
    logical, intent(inout) :: agree
    integer(c_size_t), intent(in) :: count
    real(c_double), intent(inout), optional, target :: values(:)
    if (.not. present(values)) return
    agree = agree .and. size(values, kind=c_size_t) == count
    if (size(values, kind=c_size_t) > 0) slot = inputs(values)
  end subroutine

  !> The reals that follow each other in the first of some records, and how far apart records are.
  function members(first, count, stride)
    type(c_ptr), intent(in) :: first
    integer, intent(in) :: count, stride
    type(strided) :: members(count)
    integer :: k
    do k = 1, count
      members(k) = strided(behind(first, k - 1), int(stride, c_ptrdiff_t))
    end do
  end function
  function slots_of(first, count)
    type(c_ptr), intent(in) :: first
    integer, intent(in) :: count
    type(c_ptr) :: slots_of(count)
    integer :: k
    do k = 1, count
      slots_of(k) = behind(first, k - 1)
    end do
  end function
  function behind(first, count)
    type(c_ptr), intent(in) :: first
    integer, intent(in) :: count
    type(c_ptr) :: behind
    behind = transfer(transfer(first, 0_c_intptr_t) + 8_c_intptr_t*count, behind)
  end function

  !> The outputs of one state, as C takes them.
  subroutine point_to(out, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    type(c_ptr), intent(out) :: out(output_count)
    real(c_double), intent(inout), optional, target :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    out = c_null_ptr
    ! outputs: begin, written by scripts/generate_outputs
    if (present(temp)) out(1) = c_loc(temp)
    if (present(pres)) out(2) = c_loc(pres)
    if (present(dens)) out(3) = c_loc(dens)
    if (present(svol)) out(4) = c_loc(svol)
    if (present(qual)) out(5) = c_loc(qual)
    if (present(inte)) out(6) = c_loc(inte)
    if (present(enth)) out(7) = c_loc(enth)
    if (present(entr)) out(8) = c_loc(entr)
    if (present(cv)) out(9) = c_loc(cv)
    if (present(cp)) out(10) = c_loc(cp)
    if (present(ssnd)) out(11) = c_loc(ssnd)
    if (present(visc)) out(12) = c_loc(visc)
    if (present(cond)) out(13) = c_loc(cond)
    if (present(dpdd)) out(14) = c_loc(dpdd)
    if (present(dpdt)) out(15) = c_loc(dpdt)
    if (present(dhdd)) out(16) = c_loc(dhdd)
    if (present(dhdt)) out(17) = c_loc(dhdt)
    if (present(dsdd)) out(18) = c_loc(dsdd)
    if (present(dsdt)) out(19) = c_loc(dsdt)
    ! outputs: end
  end subroutine

  !> The outputs of a batch as C takes them; agree becomes false if the size of one is not count.
  subroutine collect(out, agree, count, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    type(batch_outputs), intent(out) :: out
    logical, intent(inout) :: agree
    integer(c_size_t), intent(in) :: count
    real(c_double), intent(inout), optional, target, dimension(:) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    ! outputs: begin, written by scripts/generate_outputs
    call put(out%temp, temp)
    call put(out%pres, pres)
    call put(out%dens, dens)
    call put(out%svol, svol)
    call put(out%qual, qual)
    call put(out%inte, inte)
    call put(out%enth, enth)
    call put(out%entr, entr)
    call put(out%cv, cv)
    call put(out%cp, cp)
    call put(out%ssnd, ssnd)
    call put(out%visc, visc)
    call put(out%cond, cond)
    call put(out%dpdd, dpdd)
    call put(out%dpdt, dpdt)
    call put(out%dhdd, dhdd)
    call put(out%dhdt, dhdt)
    call put(out%dsdd, dsdd)
    call put(out%dsdt, dsdt)
    ! outputs: end
  contains
    subroutine put(slot, values)
      type(strided), intent(inout) :: slot
      real(c_double), intent(inout), optional, target :: values(:)
      call collect_values(slot, agree, count, values)
    end subroutine
  end subroutine

  !> Whether a batch can run; stops the program if not and nobody is there to be told.
  function agrees(agree, ok)
    logical, intent(in) :: agree
    logical, intent(out), optional :: ok
    logical :: agrees
    agrees = agree
    if (present(ok)) then
      ok = agree
    else if (.not. agree) then
      error stop "co2_properties: arrays of different sizes"
    end if
  end function

  ! Where an array begins and by how many elements of their kind its values are apart.
  function inputs(values)
    real(c_double), intent(in), target :: values(:)
    type(strided) :: inputs
    if (size(values, kind=c_size_t) > 0) inputs%first = c_loc(values(1))
    if (size(values, kind=c_size_t) > 1) inputs%stride = apart(c_loc(values(1)), c_loc(values(2)), 8)
  end function
  function codes(values)
    integer(c_int32_t), intent(in), target :: values(:)
    type(strided) :: codes
    if (size(values, kind=c_size_t) > 0) codes%first = c_loc(values(1))
    if (size(values, kind=c_size_t) > 1) codes%stride = apart(c_loc(values(1)), c_loc(values(2)), 4)
  end function
  function apart(first, second, bytes)
    type(c_ptr), intent(in) :: first, second
    integer, intent(in) :: bytes
    integer(c_ptrdiff_t) :: apart
    apart = transfer(second, apart) - transfer(first, apart)
    if (modulo(apart, int(bytes, c_ptrdiff_t)) /= 0) then
      error stop "co2_properties: the elements of an array are not apart by multiples of their size"
    end if
    apart = apart / bytes
  end function

end module co2_properties
