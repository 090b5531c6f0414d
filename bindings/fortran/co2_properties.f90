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
  use, intrinsic :: iso_c_binding, only: c_char, c_double, c_int32_t, c_loc, c_null_ptr, &
    c_ptr, c_ptrdiff_t, c_size_t
  implicit none
  private

  public :: co2_td, co2_tp, co2_ph, co2_ps, co2_info, co2_error_message, zero_outputs
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

  !> State from temperature, K, and pressure, kPa; never two-phase.
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

  interface
    subroutine co2_td_batch(count, temp_in, dens_in, ierr, out) bind(c, name="co2_td_batch")
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, dens_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine co2_tp_batch(count, temp_in, pres_in, ierr, out) bind(c, name="co2_tp_batch")
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: temp_in, pres_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine co2_ph_batch(count, pres_in, enth_in, ierr, out) bind(c, name="co2_ph_batch")
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, enth_in, ierr
      type(batch_outputs), intent(in) :: out
    end subroutine
    subroutine co2_ps_batch(count, pres_in, entr_in, ierr, out) bind(c, name="co2_ps_batch")
      import :: batch_outputs, c_size_t, strided
      integer(c_size_t), intent(in) :: count
      type(strided), intent(in) :: pres_in, entr_in, ierr
      type(batch_outputs), intent(in) :: out
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
      if (.not. present(values)) return
      agree = agree .and. size(values, kind=c_size_t) == count
      if (size(values, kind=c_size_t) > 0) slot = inputs(values)
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
