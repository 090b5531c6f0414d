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
! An output that is absent is neither computed nor written. With arrays of rank 1, 2 or 3 the same call
! serves many states; an input that all of them share may remain a scalar.
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
  use, intrinsic :: iso_c_binding, only: c_associated, c_char, c_double, c_int32_t, c_intptr_t, &
    c_loc, c_null_ptr, c_ptr, c_ptrdiff_t, c_size_t
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

  ! co2_inputs, co2_outputs and co2_codes of the C interface.
  type, bind(c) :: strided
    type(c_ptr) :: first = c_null_ptr
    integer(c_ptrdiff_t) :: stride = 1
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
    type(strided) :: of_phases_and_line(2*output_count + 2)
    type(c_ptr) :: liq_derivatives = c_null_ptr, vap_derivatives = c_null_ptr
  end type

  ! The arrays of a call: where each begins, and by how many bytes neighbours along each dimension are
  ! apart. Nothing is apart in a scalar, which serves all states, nor in what is absent.
  integer, parameter :: at_first = 1, at_second = 2, at_codes = 3, at_outputs = 4
  integer, parameter :: at_derivatives = at_outputs + output_count
  integer, parameter :: at_liq = at_outputs, at_vap = at_liq + output_count
  integer, parameter :: at_line = at_vap + output_count
  integer, parameter :: at_liq_derivatives = at_line + 2
  integer, parameter :: at_vap_derivatives = at_liq_derivatives + derivative_count
  integer, parameter :: field_count = at_vap_derivatives + derivative_count - 1
  type :: fields
    integer :: rank = 0
    integer(c_size_t) :: extent(3) = 1
    logical :: agree = .true.
    type(c_ptr) :: first(field_count) = c_null_ptr
    integer(c_ptrdiff_t) :: apart(3, field_count) = 0
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
  ! The forms for arrays do the same for each element, to the bit. ierr decides: inputs and outputs have
  ! its shape, but an input may be a scalar, which serves all states. Sections with any stride are used
  ! in place. An optional argument ok, the last one, tells whether the shapes agree; if they do not,
  ! nothing is written and, without ok, the program stops.
  !
  ! These forms leave the rank of all but ierr open (dimension(..)): one procedure then serves scalars
  ! beside arrays, and no descriptors are made anew, which would take four times the code.
  !
  ! Each entry has a sister co2_..._derivatives, which takes a co2_derivatives before the outputs, or
  ! an array of them, and fills all of its members. The array is intent(inout), since its members have
  ! initial values, which intent(out) would write even where the shapes disagree.

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
    module procedure co2_td_rank1, co2_td_rank2, co2_td_rank3
  end interface
  interface co2_td_derivatives
    module procedure co2_td_with_rank0, co2_td_with_rank1, co2_td_with_rank2, &
      co2_td_with_rank3
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
    module procedure co2_tp_rank1, co2_tp_rank2, co2_tp_rank3
  end interface
  interface co2_tp_derivatives
    module procedure co2_tp_with_rank0, co2_tp_with_rank1, co2_tp_with_rank2, &
      co2_tp_with_rank3
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
    module procedure co2_ph_rank1, co2_ph_rank2, co2_ph_rank3
  end interface
  interface co2_ph_derivatives
    module procedure co2_ph_with_rank0, co2_ph_with_rank1, co2_ph_with_rank2, &
      co2_ph_with_rank3
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
    module procedure co2_ps_rank1, co2_ps_rank2, co2_ps_rank3
  end interface
  interface co2_ps_derivatives
    module procedure co2_ps_with_rank0, co2_ps_with_rank1, co2_ps_with_rank2, &
      co2_ps_with_rank3
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
    module procedure co2_du_rank1, co2_du_rank2, co2_du_rank3
  end interface
  interface co2_du_derivatives
    module procedure co2_du_with_rank0, co2_du_with_rank1, co2_du_with_rank2, &
      co2_du_with_rank3
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
    module procedure co2_dh_rank1, co2_dh_rank2, co2_dh_rank3
  end interface
  interface co2_dh_derivatives
    module procedure co2_dh_with_rank0, co2_dh_with_rank1, co2_dh_with_rank2, &
      co2_dh_with_rank3
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
    module procedure co2_ds_rank1, co2_ds_rank2, co2_ds_rank3
  end interface
  interface co2_ds_derivatives
    module procedure co2_ds_with_rank0, co2_ds_with_rank1, co2_ds_with_rank2, &
      co2_ds_with_rank3
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
    module procedure co2_dp_rank1, co2_dp_rank2, co2_dp_rank3
  end interface
  interface co2_dp_derivatives
    module procedure co2_dp_with_rank0, co2_dp_with_rank1, co2_dp_with_rank2, &
      co2_dp_with_rank3
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
    module procedure co2_hs_rank1, co2_hs_rank2, co2_hs_rank3
  end interface
  interface co2_hs_derivatives
    module procedure co2_hs_with_rank0, co2_hs_with_rank1, co2_hs_with_rank2, &
      co2_hs_with_rank3
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
    module procedure co2_pu_rank1, co2_pu_rank2, co2_pu_rank3
  end interface
  interface co2_pu_derivatives
    module procedure co2_pu_with_rank0, co2_pu_with_rank1, co2_pu_with_rank2, &
      co2_pu_with_rank3
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
    module procedure co2_ts_rank1, co2_ts_rank2, co2_ts_rank3
  end interface
  interface co2_ts_derivatives
    module procedure co2_ts_with_rank0, co2_ts_with_rank1, co2_ts_with_rank2, &
      co2_ts_with_rank3
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
    module procedure co2_tx_rank1, co2_tx_rank2, co2_tx_rank3
  end interface
  interface co2_tx_derivatives
    module procedure co2_tx_with_rank0, co2_tx_with_rank1, co2_tx_with_rank2, &
      co2_tx_with_rank3
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
    module procedure co2_px_rank1, co2_px_rank2, co2_px_rank3
  end interface
  interface co2_px_derivatives
    module procedure co2_px_with_rank0, co2_px_with_rank1, co2_px_with_rank2, &
      co2_px_with_rank3
  end interface

  ! entries: end

  ! The same in C, for one state and for many.
  abstract interface
    subroutine state_derivatives(first_in, second_in, ierr, out, derivatives) bind(c)
      import :: c_double, c_int32_t, c_ptr
      real(c_double), intent(in) :: first_in, second_in
      integer(c_int32_t), intent(out) :: ierr
      type(c_ptr), intent(in) :: out(*), derivatives(*)
    end subroutine
    subroutine batch(count, first_in, second_in, ierr, out) bind(c)
      import :: c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: first_in, second_in, ierr, out(*)
    end subroutine
    subroutine batch_derivatives(count, first_in, second_in, ierr, out, derivatives) bind(c)
      import :: c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: first_in, second_in, ierr, out(*), derivatives(*)
    end subroutine
    subroutine saturation_batch(count, given, ierr, out) bind(c)
      import :: c_size_t, saturation_outputs, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: given, ierr
      type(saturation_outputs), intent(in) :: out
    end subroutine
  end interface
  ! entries: begin, written by scripts/generate_entries
  procedure(batch), bind(c) :: co2_td_batch
  procedure(state_derivatives), bind(c, name="co2_td_derivatives") :: c_td_derivatives
  procedure(batch_derivatives), bind(c) :: co2_td_batch_derivatives
  procedure(batch), bind(c) :: co2_tp_batch
  procedure(state_derivatives), bind(c, name="co2_tp_derivatives") :: c_tp_derivatives
  procedure(batch_derivatives), bind(c) :: co2_tp_batch_derivatives
  procedure(batch), bind(c) :: co2_ph_batch
  procedure(state_derivatives), bind(c, name="co2_ph_derivatives") :: c_ph_derivatives
  procedure(batch_derivatives), bind(c) :: co2_ph_batch_derivatives
  procedure(batch), bind(c) :: co2_ps_batch
  procedure(state_derivatives), bind(c, name="co2_ps_derivatives") :: c_ps_derivatives
  procedure(batch_derivatives), bind(c) :: co2_ps_batch_derivatives
  procedure(batch), bind(c) :: co2_du_batch
  procedure(state_derivatives), bind(c, name="co2_du_derivatives") :: c_du_derivatives
  procedure(batch_derivatives), bind(c) :: co2_du_batch_derivatives
  procedure(batch), bind(c) :: co2_dh_batch
  procedure(state_derivatives), bind(c, name="co2_dh_derivatives") :: c_dh_derivatives
  procedure(batch_derivatives), bind(c) :: co2_dh_batch_derivatives
  procedure(batch), bind(c) :: co2_ds_batch
  procedure(state_derivatives), bind(c, name="co2_ds_derivatives") :: c_ds_derivatives
  procedure(batch_derivatives), bind(c) :: co2_ds_batch_derivatives
  procedure(batch), bind(c) :: co2_dp_batch
  procedure(state_derivatives), bind(c, name="co2_dp_derivatives") :: c_dp_derivatives
  procedure(batch_derivatives), bind(c) :: co2_dp_batch_derivatives
  procedure(batch), bind(c) :: co2_hs_batch
  procedure(state_derivatives), bind(c, name="co2_hs_derivatives") :: c_hs_derivatives
  procedure(batch_derivatives), bind(c) :: co2_hs_batch_derivatives
  procedure(batch), bind(c) :: co2_pu_batch
  procedure(state_derivatives), bind(c, name="co2_pu_derivatives") :: c_pu_derivatives
  procedure(batch_derivatives), bind(c) :: co2_pu_batch_derivatives
  procedure(batch), bind(c) :: co2_ts_batch
  procedure(state_derivatives), bind(c, name="co2_ts_derivatives") :: c_ts_derivatives
  procedure(batch_derivatives), bind(c) :: co2_ts_batch_derivatives
  procedure(batch), bind(c) :: co2_tx_batch
  procedure(state_derivatives), bind(c, name="co2_tx_derivatives") :: c_tx_derivatives
  procedure(batch_derivatives), bind(c) :: co2_tx_batch_derivatives
  procedure(batch), bind(c) :: co2_px_batch
  procedure(state_derivatives), bind(c, name="co2_px_derivatives") :: c_px_derivatives
  procedure(batch_derivatives), bind(c) :: co2_px_batch_derivatives
  ! entries: end

  ! ---- Saturation --------------------------------------------------------------------------------

  !> Both phases at a saturation temperature, K: co2_sat_t(temp_in, ierr, liq, vap, latent_heat,
  !> dpdt_sat, liq_derivatives, vap_derivatives). liq and vap are of type co2_state, the derivatives
  !> of type co2_derivatives, all members are filled; latent_heat is the enthalpy of vaporization,
  !> kJ/kg, dpdt_sat the slope of the saturation line, kPa/K. All six are optional, all may be arrays
  !> of rank 1 and one size.
  interface co2_sat_t
    module procedure co2_sat_t_state, co2_sat_t_states
  end interface

  !> Both phases at a saturation pressure, kPa; as co2_sat_t.
  interface co2_sat_p
    module procedure co2_sat_p_state, co2_sat_p_states
  end interface

  procedure(saturation_batch), bind(c) :: co2_sat_t_batch, co2_sat_p_batch
  interface
    subroutine c_sat_t(temp_in, ierr, out) bind(c, name="co2_sat_t")
      import :: c_double, c_int32_t, saturation_output
      real(c_double), intent(in) :: temp_in
      integer(c_int32_t), intent(out) :: ierr
      type(saturation_output), intent(in) :: out
    end subroutine
    subroutine c_sat_p(pres_in, ierr, out) bind(c, name="co2_sat_p")
      import :: c_double, c_int32_t, saturation_output
      real(c_double), intent(in) :: pres_in
      integer(c_int32_t), intent(out) :: ierr
      type(saturation_output), intent(in) :: out
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
  subroutine co2_td_with_rank0(temp_in, dens_in, ierr, derivatives, &
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

  subroutine co2_td_rank1(temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), dens_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_td_batch)
  end subroutine

  subroutine co2_td_with_rank1(temp_in, dens_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), dens_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_td_batch_derivatives)
  end subroutine

  subroutine co2_td_rank2(temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), dens_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_td_batch)
  end subroutine

  subroutine co2_td_with_rank2(temp_in, dens_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), dens_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_td_batch_derivatives)
  end subroutine

  subroutine co2_td_rank3(temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), dens_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_td_batch)
  end subroutine

  subroutine co2_td_with_rank3(temp_in, dens_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), dens_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, dens_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_td_batch_derivatives)
  end subroutine

  subroutine co2_tp_with_rank0(temp_in, pres_in, ierr, derivatives, &
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

  subroutine co2_tp_rank1(temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_tp_batch)
  end subroutine

  subroutine co2_tp_with_rank1(temp_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_tp_batch_derivatives)
  end subroutine

  subroutine co2_tp_rank2(temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_tp_batch)
  end subroutine

  subroutine co2_tp_with_rank2(temp_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_tp_batch_derivatives)
  end subroutine

  subroutine co2_tp_rank3(temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_tp_batch)
  end subroutine

  subroutine co2_tp_with_rank3(temp_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_tp_batch_derivatives)
  end subroutine

  subroutine co2_ph_with_rank0(pres_in, enth_in, ierr, derivatives, &
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

  subroutine co2_ph_rank1(pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ph_batch)
  end subroutine

  subroutine co2_ph_with_rank1(pres_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ph_batch_derivatives)
  end subroutine

  subroutine co2_ph_rank2(pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ph_batch)
  end subroutine

  subroutine co2_ph_with_rank2(pres_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ph_batch_derivatives)
  end subroutine

  subroutine co2_ph_rank3(pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ph_batch)
  end subroutine

  subroutine co2_ph_with_rank3(pres_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ph_batch_derivatives)
  end subroutine

  subroutine co2_ps_with_rank0(pres_in, entr_in, ierr, derivatives, &
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

  subroutine co2_ps_rank1(pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ps_batch)
  end subroutine

  subroutine co2_ps_with_rank1(pres_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ps_batch_derivatives)
  end subroutine

  subroutine co2_ps_rank2(pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ps_batch)
  end subroutine

  subroutine co2_ps_with_rank2(pres_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ps_batch_derivatives)
  end subroutine

  subroutine co2_ps_rank3(pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ps_batch)
  end subroutine

  subroutine co2_ps_with_rank3(pres_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ps_batch_derivatives)
  end subroutine

  subroutine co2_du_with_rank0(dens_in, inte_in, ierr, derivatives, &
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

  subroutine co2_du_rank1(dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_du_batch)
  end subroutine

  subroutine co2_du_with_rank1(dens_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_du_batch_derivatives)
  end subroutine

  subroutine co2_du_rank2(dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_du_batch)
  end subroutine

  subroutine co2_du_with_rank2(dens_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_du_batch_derivatives)
  end subroutine

  subroutine co2_du_rank3(dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_du_batch)
  end subroutine

  subroutine co2_du_with_rank3(dens_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_du_batch_derivatives)
  end subroutine

  subroutine co2_dh_with_rank0(dens_in, enth_in, ierr, derivatives, &
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

  subroutine co2_dh_rank1(dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_dh_batch)
  end subroutine

  subroutine co2_dh_with_rank1(dens_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_dh_batch_derivatives)
  end subroutine

  subroutine co2_dh_rank2(dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_dh_batch)
  end subroutine

  subroutine co2_dh_with_rank2(dens_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_dh_batch_derivatives)
  end subroutine

  subroutine co2_dh_rank3(dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_dh_batch)
  end subroutine

  subroutine co2_dh_with_rank3(dens_in, enth_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), enth_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, enth_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_dh_batch_derivatives)
  end subroutine

  subroutine co2_ds_with_rank0(dens_in, entr_in, ierr, derivatives, &
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

  subroutine co2_ds_rank1(dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ds_batch)
  end subroutine

  subroutine co2_ds_with_rank1(dens_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ds_batch_derivatives)
  end subroutine

  subroutine co2_ds_rank2(dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ds_batch)
  end subroutine

  subroutine co2_ds_with_rank2(dens_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ds_batch_derivatives)
  end subroutine

  subroutine co2_ds_rank3(dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ds_batch)
  end subroutine

  subroutine co2_ds_with_rank3(dens_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ds_batch_derivatives)
  end subroutine

  subroutine co2_dp_with_rank0(dens_in, pres_in, ierr, derivatives, &
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

  subroutine co2_dp_rank1(dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_dp_batch)
  end subroutine

  subroutine co2_dp_with_rank1(dens_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_dp_batch_derivatives)
  end subroutine

  subroutine co2_dp_rank2(dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_dp_batch)
  end subroutine

  subroutine co2_dp_with_rank2(dens_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_dp_batch_derivatives)
  end subroutine

  subroutine co2_dp_rank3(dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_dp_batch)
  end subroutine

  subroutine co2_dp_with_rank3(dens_in, pres_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: dens_in(..), pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, dens_in, pres_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_dp_batch_derivatives)
  end subroutine

  subroutine co2_hs_with_rank0(enth_in, entr_in, ierr, derivatives, &
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

  subroutine co2_hs_rank1(enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_hs_batch)
  end subroutine

  subroutine co2_hs_with_rank1(enth_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_hs_batch_derivatives)
  end subroutine

  subroutine co2_hs_rank2(enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_hs_batch)
  end subroutine

  subroutine co2_hs_with_rank2(enth_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_hs_batch_derivatives)
  end subroutine

  subroutine co2_hs_rank3(enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_hs_batch)
  end subroutine

  subroutine co2_hs_with_rank3(enth_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: enth_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, enth_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_hs_batch_derivatives)
  end subroutine

  subroutine co2_pu_with_rank0(pres_in, inte_in, ierr, derivatives, &
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

  subroutine co2_pu_rank1(pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_pu_batch)
  end subroutine

  subroutine co2_pu_with_rank1(pres_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_pu_batch_derivatives)
  end subroutine

  subroutine co2_pu_rank2(pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_pu_batch)
  end subroutine

  subroutine co2_pu_with_rank2(pres_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_pu_batch_derivatives)
  end subroutine

  subroutine co2_pu_rank3(pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_pu_batch)
  end subroutine

  subroutine co2_pu_with_rank3(pres_in, inte_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), inte_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, inte_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_pu_batch_derivatives)
  end subroutine

  subroutine co2_ts_with_rank0(temp_in, entr_in, ierr, derivatives, &
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

  subroutine co2_ts_rank1(temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ts_batch)
  end subroutine

  subroutine co2_ts_with_rank1(temp_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ts_batch_derivatives)
  end subroutine

  subroutine co2_ts_rank2(temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ts_batch)
  end subroutine

  subroutine co2_ts_with_rank2(temp_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ts_batch_derivatives)
  end subroutine

  subroutine co2_ts_rank3(temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_ts_batch)
  end subroutine

  subroutine co2_ts_with_rank3(temp_in, entr_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), entr_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, entr_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_ts_batch_derivatives)
  end subroutine

  subroutine co2_tx_with_rank0(temp_in, qual_in, ierr, derivatives, &
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

  subroutine co2_tx_rank1(temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_tx_batch)
  end subroutine

  subroutine co2_tx_with_rank1(temp_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_tx_batch_derivatives)
  end subroutine

  subroutine co2_tx_rank2(temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_tx_batch)
  end subroutine

  subroutine co2_tx_with_rank2(temp_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_tx_batch_derivatives)
  end subroutine

  subroutine co2_tx_rank3(temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_tx_batch)
  end subroutine

  subroutine co2_tx_with_rank3(temp_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: temp_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, temp_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_tx_batch_derivatives)
  end subroutine

  subroutine co2_px_with_rank0(pres_in, qual_in, ierr, derivatives, &
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

  subroutine co2_px_rank1(pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_px_batch)
  end subroutine

  subroutine co2_px_with_rank1(pres_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_derivatives), intent(inout), target :: derivatives(:)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_px_batch_derivatives)
  end subroutine

  subroutine co2_px_rank2(pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_px_batch)
  end subroutine

  subroutine co2_px_with_rank2(pres_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_px_batch_derivatives)
  end subroutine

  subroutine co2_px_rank3(pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call solve(arrays, ok, co2_px_batch)
  end subroutine

  subroutine co2_px_with_rank3(pres_in, qual_in, ierr, derivatives, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, ok)
    real(c_double), intent(in), target :: pres_in(..), qual_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:, :, :)
    type(co2_derivatives), intent(inout), target :: derivatives(:, :, :)
    real(c_double), intent(out), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call collect(arrays, pres_in, qual_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    call place_derivatives(arrays, at_derivatives, derivatives)
    call solve(arrays, ok, with_derivatives=co2_px_batch_derivatives)
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
    real(c_double), intent(in), target :: temp_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_state), intent(out), optional, target :: liq(:), vap(:)
    real(c_double), intent(out), optional, target :: latent_heat(:), dpdt_sat(:)
    type(co2_derivatives), intent(inout), optional, target :: liq_derivatives(:), &
      vap_derivatives(:)
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call place_codes(arrays, ierr)
    call place(arrays, at_first, temp_in)
    call place_phase(arrays, at_liq, liq)
    call place_phase(arrays, at_vap, vap)
    call place(arrays, at_line, latent_heat)
    call place(arrays, at_line + 1, dpdt_sat)
    call place_derivatives(arrays, at_liq_derivatives, liq_derivatives)
    call place_derivatives(arrays, at_vap_derivatives, vap_derivatives)
    call solve(arrays, ok, saturation=co2_sat_t_batch)
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
    real(c_double), intent(in), target :: pres_in(..)
    integer(c_int32_t), intent(out), target :: ierr(:)
    type(co2_state), intent(out), optional, target :: liq(:), vap(:)
    real(c_double), intent(out), optional, target :: latent_heat(:), dpdt_sat(:)
    type(co2_derivatives), intent(inout), optional, target :: liq_derivatives(:), &
      vap_derivatives(:)
    logical, intent(out), optional :: ok
    type(fields) :: arrays
    call place_codes(arrays, ierr)
    call place(arrays, at_first, pres_in)
    call place_phase(arrays, at_liq, liq)
    call place_phase(arrays, at_vap, vap)
    call place(arrays, at_line, latent_heat)
    call place(arrays, at_line + 1, dpdt_sat)
    call place_derivatives(arrays, at_liq_derivatives, liq_derivatives)
    call place_derivatives(arrays, at_vap_derivatives, vap_derivatives)
    call solve(arrays, ok, saturation=co2_sat_p_batch)
  end subroutine

  !> The reals that follow each other from the first on.
  function slots_of(first, count)
    type(c_ptr), intent(in) :: first
    integer, intent(in) :: count
    type(c_ptr) :: slots_of(count)
    integer :: k
    do k = 1, count
      slots_of(k) = behind(first, 8_c_ptrdiff_t*(k - 1))
    end do
  end function
  elemental function behind(first, bytes)
    type(c_ptr), intent(in) :: first
    integer(c_ptrdiff_t), intent(in) :: bytes
    type(c_ptr) :: behind
    behind = transfer(transfer(first, 0_c_intptr_t) + bytes, behind)
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

  !> The arrays of a pair of inputs.
  subroutine collect(arrays, first_in, second_in, ierr, &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt)
    type(fields), intent(inout) :: arrays
    real(c_double), intent(in), target :: first_in(..), second_in(..)
    integer(c_int32_t), intent(in), target :: ierr(..)
    real(c_double), intent(in), optional, target, dimension(..) :: &
      temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, &
      ssnd, visc, cond, dpdd, dpdt, dhdd, dhdt, dsdd, dsdt
    call place_codes(arrays, ierr)
    call place(arrays, at_first, first_in)
    call place(arrays, at_second, second_in)
    ! outputs: begin, written by scripts/generate_outputs
    call place(arrays, 4, temp)
    call place(arrays, 5, pres)
    call place(arrays, 6, dens)
    call place(arrays, 7, svol)
    call place(arrays, 8, qual)
    call place(arrays, 9, inte)
    call place(arrays, 10, enth)
    call place(arrays, 11, entr)
    call place(arrays, 12, cv)
    call place(arrays, 13, cp)
    call place(arrays, 14, ssnd)
    call place(arrays, 15, visc)
    call place(arrays, 16, cond)
    call place(arrays, 17, dpdd)
    call place(arrays, 18, dpdt)
    call place(arrays, 19, dhdd)
    call place(arrays, 20, dhdt)
    call place(arrays, 21, dsdd)
    call place(arrays, 22, dsdt)
    ! outputs: end
  end subroutine

  !> The codes, which have the shape that all others have to have.
  subroutine place_codes(arrays, codes)
    type(fields), intent(inout) :: arrays
    integer(c_int32_t), intent(in), target :: codes(..)
    integer :: l(3), n(3)
    arrays%extent(:rank(codes)) = shape(codes, kind=c_size_t)
    arrays%rank = rank(codes)
    if (.not. fits(arrays, shape(codes, kind=c_size_t))) return
    select rank (codes)
    rank (1)
      l(:1) = lbound(codes)
      n = next_to(l(:1), arrays)
      call lay(arrays, at_codes, c_loc(codes(l(1))), [c_loc(codes(n(1)))])
    rank (2)
      l(:2) = lbound(codes)
      n = next_to(l(:2), arrays)
      call lay(arrays, at_codes, c_loc(codes(l(1), l(2))), [c_loc(codes(n(1), l(2))), &
        c_loc(codes(l(1), n(2)))])
    rank (3)
      l(:3) = lbound(codes)
      n = next_to(l(:3), arrays)
      call lay(arrays, at_codes, c_loc(codes(l(1), l(2), l(3))), [c_loc(codes(n(1), l(2), l(3))), &
        c_loc(codes(l(1), n(2), l(3))), c_loc(codes(l(1), l(2), n(3)))])
    end select
  end subroutine

  !> An array of the same shape or, of inputs, a scalar.
  subroutine place(arrays, at, values)
    type(fields), intent(inout) :: arrays
    integer, intent(in) :: at
    real(c_double), intent(in), optional, target :: values(..)
    integer :: l(3), n(3)
    if (.not. present(values)) return
    if (rank(values) > 0) then
      if (.not. fits(arrays, shape(values, kind=c_size_t))) return
    else if (at > at_second) then
      arrays%agree = .false.
    end if
    select rank (values)
    rank (0)
      arrays%first(at) = c_loc(values)
    rank (1)
      l(:1) = lbound(values)
      n = next_to(l(:1), arrays)
      call lay(arrays, at, c_loc(values(l(1))), [c_loc(values(n(1)))])
    rank (2)
      l(:2) = lbound(values)
      n = next_to(l(:2), arrays)
      call lay(arrays, at, c_loc(values(l(1), l(2))), [c_loc(values(n(1), l(2))), &
        c_loc(values(l(1), n(2)))])
    rank (3)
      l(:3) = lbound(values)
      n = next_to(l(:3), arrays)
      call lay(arrays, at, c_loc(values(l(1), l(2), l(3))), [c_loc(values(n(1), l(2), l(3))), &
        c_loc(values(l(1), n(2), l(3))), c_loc(values(l(1), l(2), n(3)))])
    end select
  end subroutine

  ! Whole records: gfortran hands over a copy of their components.
  subroutine place_derivatives(arrays, at, records)
    type(fields), intent(inout) :: arrays
    integer, intent(in) :: at
    type(co2_derivatives), intent(in), optional, target :: records(..)
    integer :: l(3), n(3)
    if (.not. present(records)) return
    if (.not. fits(arrays, shape(records, kind=c_size_t))) return
    select rank (records)
    rank (1)
      l(:1) = lbound(records)
      n = next_to(l(:1), arrays)
      call lay(arrays, at, c_loc(records(l(1))), [c_loc(records(n(1)))], derivative_count)
    rank (2)
      l(:2) = lbound(records)
      n = next_to(l(:2), arrays)
      call lay(arrays, at, c_loc(records(l(1), l(2))), [c_loc(records(n(1), l(2))), &
        c_loc(records(l(1), n(2)))], derivative_count)
    rank (3)
      l(:3) = lbound(records)
      n = next_to(l(:3), arrays)
      call lay(arrays, at, c_loc(records(l(1), l(2), l(3))), [c_loc(records(n(1), l(2), l(3))), &
        c_loc(records(l(1), n(2), l(3))), c_loc(records(l(1), l(2), n(3)))], derivative_count)
    end select
  end subroutine
  subroutine place_phase(arrays, at, records)
    type(fields), intent(inout) :: arrays
    integer, intent(in) :: at
    type(co2_state), intent(in), optional, target :: records(:)
    integer :: n(3)
    if (.not. present(records)) return
    if (.not. fits(arrays, shape(records, kind=c_size_t))) return
    n = next_to([1], arrays)
    call lay(arrays, at, c_loc(records(1)), [c_loc(records(n(1)))], output_count)
  end subroutine

  !> Whether an array has the shape of the codes, and elements.
  logical function fits(arrays, extent)
    type(fields), intent(inout) :: arrays
    integer(c_size_t), intent(in) :: extent(:)
    if (size(extent) /= arrays%rank) then
      arrays%agree = .false.
    else if (any(extent /= arrays%extent(:arrays%rank))) then
      arrays%agree = .false.
    end if
    fits = arrays%agree .and. all(arrays%extent > 0)
  end function

  !> The second index of each dimension that has one. The first is 1 by the standard, but where the
  !> rank has been selected gfortran counts from 0 in an array that it made for an expression.
  function next_to(l, arrays)
    integer, intent(in) :: l(:)
    type(fields), intent(in) :: arrays
    integer :: next_to(3)
    next_to = 1
    next_to(:size(l)) = l + int(min(1_c_size_t, arrays%extent(:size(l)) - 1))
  end function

  !> The first element and the next one along each dimension, of records of so many reals.
  subroutine lay(arrays, at, first, next, members)
    type(fields), intent(inout) :: arrays
    integer, intent(in) :: at
    type(c_ptr), intent(in) :: first, next(:)
    integer, intent(in), optional :: members
    integer :: k, last
    last = at
    if (present(members)) last = at + members - 1
    arrays%first(at:last) = slots_of(first, last - at + 1)
    do k = 1, size(next)
      arrays%apart(k, at:last) = transfer(next(k), 0_c_ptrdiff_t) - transfer(first, 0_c_ptrdiff_t)
    end do
  end subroutine

  !> Runs an entry over all states, in one call if every array is evenly spaced, else row by row. Stops
  !> the program if the shapes disagree and nobody is there to be told.
  subroutine solve(arrays, ok, without, with_derivatives, saturation)
    type(fields), intent(inout) :: arrays
    logical, intent(out), optional :: ok
    procedure(batch), optional :: without
    procedure(batch_derivatives), optional :: with_derivatives
    procedure(saturation_batch), optional :: saturation
    integer(c_ptrdiff_t) :: bytes(field_count)
    type(strided), target :: row(field_count)
    type(saturation_outputs) :: of_saturation
    integer(c_size_t) :: j, k
    integer :: i
    if (present(ok)) then
      ok = arrays%agree
    else if (.not. arrays%agree) then
      error stop "co2_properties: arrays of different shapes"
    end if
    if (.not. arrays%agree .or. any(arrays%extent == 0)) return
    bytes = 8
    bytes(at_codes) = 4
    do i = 1, field_count
      if (any(modulo(arrays%apart(:, i), bytes(i)) /= 0)) then
        error stop "co2_properties: the elements of an array are not apart by multiples of their size"
      end if
    end do
    call join_dimensions(arrays)
    do k = 0, arrays%extent(3) - 1
      do j = 0, arrays%extent(2) - 1
        do i = 1, field_count
          row(i) = strided(behind(arrays%first(i), j*arrays%apart(2, i) + k*arrays%apart(3, i)), &
            arrays%apart(1, i)/bytes(i))
        end do
        if (present(without)) then
          call without(arrays%extent(1), row(at_first), row(at_second), row(at_codes), row(at_outputs:))
        else if (present(with_derivatives)) then
          call with_derivatives(arrays%extent(1), row(at_first), row(at_second), row(at_codes), &
            row(at_outputs:), row(at_derivatives:))
        else
          of_saturation%of_phases_and_line = row(at_liq:at_line + 1)
          if (c_associated(arrays%first(at_liq_derivatives))) &
            of_saturation%liq_derivatives = c_loc(row(at_liq_derivatives))
          if (c_associated(arrays%first(at_vap_derivatives))) &
            of_saturation%vap_derivatives = c_loc(row(at_vap_derivatives))
          call saturation(arrays%extent(1), row(at_first), row(at_codes), of_saturation)
        end if
      end do
    end do
  end subroutine

  !> Takes two dimensions for one where the next row follows in the same steps in every array.
  subroutine join_dimensions(arrays)
    type(fields), intent(inout) :: arrays
    integer :: k, n
    n = 1
    do k = 2, 3
      if (arrays%extent(k) == 1) cycle
      if (arrays%extent(n) == 1) then
        arrays%apart(n, :) = arrays%apart(k, :)
      else if (.not. follows()) then
        n = n + 1
        arrays%apart(n, :) = arrays%apart(k, :)
        arrays%extent([n, k]) = arrays%extent([k, n])
        cycle
      end if
      arrays%extent(n) = arrays%extent(n)*arrays%extent(k)
      arrays%extent(k) = 1
    end do
  contains
    logical function follows()
      follows = count(arrays%apart(k, :) /= arrays%extent(n)*arrays%apart(n, :)) == 0
    end function
  end subroutine

end module co2_properties
