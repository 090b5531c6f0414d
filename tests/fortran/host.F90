! A host in Fortran: outputs by keyword and by position, arrays and sections of them, messages,
! parts. What comes out under each name is checked against relations between the properties, so that
! a name which is bound to another slot is found.
#define BY_NAME dsdt=dsdt, dsdd=dsdd, dhdt=dhdt, dhdd=dhdd, dpdt=dpdt, dpdd=dpdd, cond=cond, \
  visc=visc, ssnd=ssnd, cp=cp, cv=cv, entr=entr, enth=enth, inte=inte, qual=qual, svol=svol, \
  dens=dens, pres=pres, temp=temp
#define IN_ORDER(at) at(1), at(2), at(3), at(4), at(5), at(6), at(7), at(8), at(9), at(10), \
  at(11), at(12), at(13), at(14), at(15), at(16), at(17), at(18), at(19)
#define OF_ALL(k) a(k, :)
#define OF_ONE(k) b(k)
program host
  use, intrinsic :: iso_fortran_env, only: int32, real64
  use, intrinsic :: ieee_arithmetic, only: ieee_quiet_nan, ieee_value
  use co2_properties
  implicit none
  integer, parameter :: dp = real64
  real(dp), parameter :: canary = -7.25e77_dp
  integer :: failures = 0

  ! A cell of a flow solver: its values lie apart by the size of the cell.
  type cell
    integer :: material
    real(dp) :: temp, pres, dens, enth
  end type

  call scalar_calls()
  call array_calls()
  call unequal_arrays()
  call parts()
  if (failures > 0) error stop "a check failed"

contains

  subroutine check(truth, what)
    logical, intent(in) :: truth
    character(*), intent(in) :: what
    if (truth) return
    failures = failures + 1
    print '(2a)', 'failed: ', what
  end subroutine

  logical function near(value, expected)
    real(dp), intent(in) :: value, expected
    near = abs(value - expected) <= 1e-9_dp*abs(expected)
  end function

  ! One entry with each output named, at the state that co2_td has at t and rho.
  subroutine check_names(entry, t, rho)
    character(*), intent(in) :: entry
    real(dp), intent(in) :: t, rho
    real(dp) :: temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond
    real(dp) :: dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, p, h, s, expected
    integer(int32) :: ierr
    call co2_td(t, rho, ierr, pres=p, enth=h, entr=s)
    select case (entry)
    case ('co2_td')
      call co2_td(t, rho, ierr, BY_NAME)
    case ('co2_tp')
      call co2_tp(t, p, ierr, BY_NAME)
    case ('co2_ph')
      call co2_ph(p, h, ierr, BY_NAME)
    case ('co2_ps')
      call co2_ps(p, s, ierr, BY_NAME)
    end select
    call check(ierr == 0, entry//': ierr')
    call check(near(temp, t), entry//': temp')
    call check(near(pres, p), entry//': pres')
    call check(near(dens, rho), entry//': dens')
    call check(near(svol, 1/rho), entry//': svol')
    call check(qual > 997, entry//': qual, the mark of a supercritical state')
    call check(near(entr, s), entry//': entr')
    call check(near(enth, h), entry//': enth')
    call check(near(inte, h - p/rho), entry//': inte = h - p/rho')
    call check(near(dsdd, -dpdt/rho**2), entry//': ds/drho = -dp/dT / rho2')
    call check(near(dsdt, cv/t), entry//': ds/dT = cv/T')
    call check(near(dhdd, t*dsdd + dpdd/rho), entry//': dh/drho = T ds/drho + dp/drho / rho')
    call check(near(dhdt, t*dsdt + dpdt/rho), entry//': dh/dT = T ds/dT + dp/dT / rho')
    call check(near(cp, cv + t*dpdt**2/(rho**2*dpdd)), entry//': cp - cv')
    call check(near(ssnd**2, 1000*dpdd*cp/cv), entry//': w2 = cp/cv dp/drho')
    call calculate_visc(rho, t, expected)
    call check(near(visc, expected), entry//': visc')
    call calculate_cond(rho, t, expected)
    call check(near(cond, expected), entry//': cond')
  end subroutine

  subroutine scalar_calls()
    real(dp) :: t, p, u, w(3), nan
    integer(int32) :: ierr
    ! Away from the edges of elements, where neighbours differ by more than rounding.
    call check_names('co2_td', 403.0_dp, 311.0_dp)
    call check_names('co2_tp', 403.0_dp, 311.0_dp)
    call check_names('co2_ph', 403.0_dp, 311.0_dp)
    call check_names('co2_ps', 403.0_dp, 311.0_dp)

    call co2_td(400.0_dp, 300.0_dp, ierr, t, p)
    call check(t == 400 .and. p > 7377.3_dp, 'by position, the rest absent')
    call co2_td(400.0_dp, 300.0_dp, ierr, t, inte=w(1))
    call check(t == 400 .and. w(1) < 600, 'by position, then by keyword')
    call co2_td(400.0_dp, 300.0_dp, ierr)
    call check(ierr == 0, 'no output at all')
    call absent_here(ierr)

    call co2_td(280.0_dp, 300.0_dp, ierr, enth=w(1), cp=w(2))
    call check(ierr == -101 .and. w(2) == 0, 'two phases: a warning with cp')
    call co2_tp(300.0_dp, 0.5_dp, ierr, enth=w(1), cp=w(2))
    call check(ierr == 203 .and. all(w(:2) == 0), 'an error zeroes what is present')
    call check(co2_error_message(ierr) == &
      'CO2_TP: specified pressure below minimum value of 1 kPa', 'its text')
    call check(len(co2_error_message(ierr)) == 255, 'length of the text')
    nan = ieee_value(nan, ieee_quiet_nan)
    call co2_ph(nan, 300.0_dp, ierr)
    call check(ierr == 305, 'NaN reaches the library')

    call co2_info(psatmin=u)
    call check(u == 1282.4835_dp, 'co2_info(psatmin=...)')
    call co2_info(w(1), w(2), w(3))
    call check(all(w == [304.1282_dp, 467.6_dp, 7377.3_dp]), 'co2_info, the first three')
    w = canary
    call zero_outputs(pres=w(1), dsdt=w(3))
    call check(w(1) == 0 .and. w(2) == canary .and. w(3) == 0, 'zero_outputs')
  end subroutine

  ! Absent arguments of the host stay absent in the library.
  subroutine absent_here(ierr, enth)
    integer(int32), intent(out) :: ierr
    real(dp), intent(out), optional :: enth
    real(dp) :: dens
    call co2_tp(300.0_dp, 5000.0_dp, ierr, enth=enth, dens=dens)
    call check(ierr == 0 .and. dens > 100, 'an absent argument passed on')
  end subroutine

  ! All outputs of a batch against those of single calls, in places of their own.
  subroutine check_batch(entry, first, second)
    character(*), intent(in) :: entry
    real(dp), intent(in) :: first(:), second(:)
    real(dp) :: a(19, size(first)), b(19)
    integer(int32) :: codes(size(first)), ierr
    integer :: i
    logical :: ok
    a = canary
    select case (entry)
    case ('co2_td')
      call co2_td(first, second, codes, IN_ORDER(OF_ALL), ok)
    case ('co2_tp')
      call co2_tp(first, second, codes, IN_ORDER(OF_ALL), ok)
    case ('co2_ph')
      call co2_ph(first, second, codes, IN_ORDER(OF_ALL), ok)
    case ('co2_ps')
      call co2_ps(first, second, codes, IN_ORDER(OF_ALL), ok)
    end select
    call check(ok, entry//': sizes agree')
    do i = 1, size(first)
      select case (entry)
      case ('co2_td')
        call co2_td(first(i), second(i), ierr, IN_ORDER(OF_ONE))
      case ('co2_tp')
        call co2_tp(first(i), second(i), ierr, IN_ORDER(OF_ONE))
      case ('co2_ph')
        call co2_ph(first(i), second(i), ierr, IN_ORDER(OF_ONE))
      case ('co2_ps')
        call co2_ps(first(i), second(i), ierr, IN_ORDER(OF_ONE))
      end select
      call check(codes(i) == ierr, entry//': code of a batch')
      call check(all(a(:, i) == b), entry//': outputs of a batch')
    end do
  end subroutine

  subroutine array_calls()
    type(cell) :: cells(3)
    real(dp) :: field(2, 3), nothing(0), result(0), t(3), one
    integer(int32) :: codes(6), none(0), ierr
    integer :: i
    call check_batch('co2_td', [280.0_dp, 400.0_dp, 280.0_dp], [20.0_dp, 300.0_dp, 300.0_dp])
    call check_batch('co2_tp', [280.0_dp, 400.0_dp, 200.0_dp], [1e3_dp, 9e3_dp, 1e3_dp])
    call check_batch('co2_ph', [1e3_dp, 9e3_dp, 3e3_dp], [480.0_dp, 600.0_dp, 300.0_dp])
    call check_batch('co2_ps', [1e3_dp, 9e3_dp, 3e3_dp], [2.2_dp, 2.1_dp, 1.4_dp])

    ! Components of cells, codes with a gap, backwards.
    cells%material = 7
    cells%temp = [280.0_dp, 400.0_dp, 500.0_dp]
    cells%pres = [1000.0_dp, 9000.0_dp, 20000.0_dp]
    cells%dens = canary
    codes = 77
    call co2_tp(cells%temp, cells%pres, codes(5:1:-2), dens=cells%dens, enth=cells%enth)
    call check(all(codes == [0, 77, 0, 77, 0, 77]), 'codes with a gap')
    call check(all(cells%material == 7), 'the rest of the cells')
    do i = 1, 3
      call co2_tp(cells(i)%temp, cells(i)%pres, ierr, enth=one)
      call check(cells(i)%enth == one .and. cells(i)%dens > 0, 'components of cells')
    end do

    field = canary
    t = cells%temp
    call co2_tp(t(3:1:-1), cells(3:1:-1)%pres, codes(1:3), enth=field(2, :))
    call check(all(field(1, :) == canary), 'the other row')
    call check(all(field(2, 3:1:-1) == cells%enth), 'a row, backwards')
    call co2_tp(nothing, nothing, none, enth=result)
  end subroutine

  subroutine unequal_arrays()
    real(dp) :: t(3) = 300, p(3) = 5000, h(3), short(2)
    integer(int32) :: codes(3)
    logical :: ok
    codes = 77
    h = canary
    short = canary
    call co2_tp(t, p, codes, enth=h, cp=short, ok=ok)
    call check(.not. ok .and. all(codes == 77), 'a short output')
    call check(all(h == canary) .and. all(short == canary), 'nothing is written')
    call co2_tp(t, p(1:2), codes, enth=h, ok=ok)
    call check(.not. ok .and. all(h == canary), 'a short input')
  end subroutine

  ! Parts, by relations between them and with the entries.
  subroutine parts()
    real(dp), parameter :: t = 280
    real(dp) :: liq, vap, sat, p, h, s, temp, dens, v(3)
    integer(int32) :: e, flag, ierr
    type(helmholtz_derivatives) :: d
    liq = calc_sat_liq_dens(t)
    vap = calc_sat_vap_dens(t)
    sat = calc_sat_pres(t)
    call co2_td(t, 300.0_dp, ierr, pres=p, qual=v(1))
    call check(p == sat, 'calc_sat_pres')
    call check(near(v(1), (1/300.0_dp - 1/liq)/(1/vap - 1/liq)), 'saturated densities')
    call check(abs(calc_sat_temp(sat) - t) < 1e-3_dp, 'calc_sat_temp')

    e = liq_index_from_td(t, 900.0_dp)
    d = element_derivatives(e, t, 900.0_dp)
    call co2_td(t, 900.0_dp, ierr, pres=p, enth=h, entr=s, cv=v(1), dpdd=v(2), dpdt=v(3))
    call check(near(-d%a_t, s) .and. near(900.0_dp**2*d%a_d, p), 'element_derivatives: first')
    call check(near(-t*d%a_tt, v(1)) .and. near(900.0_dp**2*d%a_td, v(3)), 'a_tt, a_td')
    call check(near(900*(2*d%a_d + 900*d%a_dd), v(2)) .and. near(d%a, h - p/900 - t*s), 'a_dd, a')
    call check(liq_index_from_tp(t, p) == e, 'liq_index_from_tp')
    call co2_td(t, 50.0_dp, ierr, pres=p)
    call check(vap_index_from_td(t, 50.0_dp) == vap_index_from_tp(t, p), 'vap_index_from_...')
    call co2_td(400.0_dp, 300.0_dp, ierr, pres=p, enth=h, entr=s)
    call check(sc_index_from_td(400.0_dp, 300.0_dp) == sc_index_from_tp(400.0_dp, p), 'sc_index')

    call temp_from_hp(h, p, temp, flag)
    call dens_from_hp(h, p, dens)
    call check(flag == 0 .and. abs(temp - 400) < 2 .and. abs(dens - 300) < 5, 'start from h')
    call temp_from_sp(s, p, temp, flag)
    call dens_from_sp(s, p, dens)
    call check(flag == 0 .and. abs(temp - 400) < 2 .and. abs(dens - 300) < 5, 'start from s')

    call co2_td(305.0_dp, 450.0_dp, ierr, cp=v(1), cv=v(2), ssnd=v(3))
    call calculate_cp(450.0_dp, 305.0_dp, temp)
    call check(temp == v(1), 'calculate_cp')
    call calculate_cv(450.0_dp, 305.0_dp, temp)
    call check(temp == v(2), 'calculate_cv')
    call calculate_ssnd(450.0_dp, 305.0_dp, temp)
    call check(temp == v(3), 'calculate_ssnd')
    call fittp(t, 9000.0_dp, h, dens, v(1), v(2), v(3), temp)
    call co2_tp(t, 9000.0_dp, ierr, visc=s)
    call check(abs(temp*1e6_dp - s) < 1e-6_dp*s, 'fittp: viscosity in Pa s')
  end subroutine
end program
