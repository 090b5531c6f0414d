! A host in Fortran: outputs by keyword and by position, derivatives, arrays and sections of them,
! saturation, messages, parts. What comes out under each name is checked against relations between the properties, so that
! a name which is bound to another slot is found.
#define BY_NAME dsdt=dsdt, dsdd=dsdd, dhdt=dhdt, dhdd=dhdd, dpdt=dpdt, dpdd=dpdd, cond=cond, \
  visc=visc, ssnd=ssnd, cp=cp, cv=cv, entr=entr, enth=enth, inte=inte, qual=qual, svol=svol, \
  dens=dens, pres=pres, temp=temp
#define IN_ORDER(at) at(1), at(2), at(3), at(4), at(5), at(6), at(7), at(8), at(9), at(10), \
  at(11), at(12), at(13), at(14), at(15), at(16), at(17), at(18), at(19)
#define OF_ALL(k) a(k, :)
#define OF_ONE(k) b(k)
! A branch for each entry, and what is called there.
#define EACH(of) of(co2_td); of(co2_tp); of(co2_ph); of(co2_ps); of(co2_du); of(co2_dh); \
  of(co2_ds); of(co2_dp); of(co2_hs); of(co2_pu); of(co2_ts); of(co2_tx); of(co2_px)
#define NAMED(entry) case ('entry'); call entry(first, second, ierr, BY_NAME)
#define WITH_SET(entry) \
  case ('entry'); call entry/**/_derivatives(first, second, ierr, d, IN_ORDER(OF_ONE))
#define ARRAYS(entry) case ('entry'); \
  call entry(first, second, codes, IN_ORDER(OF_ALL), ok); \
  call entry/**/_derivatives(first, second, codes_too, ds(size(ds):1:-2), ok=ok_too)
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

  call relations(403.0_dp, 311.0_dp)
  call every_entry()
  call scalar_calls()
  call array_calls()
  call fields_of_higher_rank()
  call unequal_arrays()
  call saturation()
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

  elemental logical function near(value, expected)
    real(dp), intent(in) :: value, expected
    near = abs(value - expected) <= 1e-9_dp*abs(expected)
  end function

  logical function same(a, b)
    type(co2_derivatives), intent(in) :: a, b
    real(dp) :: members(30)
    same = all(transfer(a, members) == transfer(b, members))
  end function

  ! co2_td, in one phase and away from edges of elements, where neighbours differ by more than
  ! rounding.
  subroutine relations(t, rho)
    real(dp), intent(in) :: t, rho
    real(dp) :: temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond
    real(dp) :: dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, expected, dtdd_s, v(3, 2, 2)
    integer(int32) :: ierr
    integer :: i, k
    type(co2_derivatives) :: d
    call co2_td_derivatives(t, rho, ierr, d, BY_NAME)
    call check(ierr == 0 .and. temp == t .and. dens == rho, 'ierr, temp, dens')
    call check(near(svol, 1/rho), 'svol')
    call check(qual > 997, 'qual, the mark of a supercritical state')
    call check(near(inte, enth - pres/rho), 'inte = h - p/rho')
    call check(near(dsdd, -dpdt/rho**2), 'ds/drho = -dp/dT / rho2')
    call check(near(dsdt, cv/t), 'ds/dT = cv/T')
    call check(near(dhdd, t*dsdd + dpdd/rho), 'dh/drho = T ds/drho + dp/drho / rho')
    call check(near(dhdt, t*dsdt + dpdt/rho), 'dh/dT = T ds/dT + dp/dT / rho')
    call check(near(cp, cv + t*dpdt**2/(rho**2*dpdd)), 'cp - cv')
    call check(near(ssnd**2, 1000*dpdd*cp/cv), 'w2 = cp/cv dp/drho')
    call calculate_visc(rho, t, expected)
    call check(near(visc, expected), 'visc')
    call calculate_cond(rho, t, expected)
    call check(near(cond, expected), 'cond')

    call check(near(d%dpdd_t, dpdd) .and. near(d%dpdt_d, dpdt), 'dpdd_t, dpdt_d')
    call check(near(d%cv_eq, cv) .and. near(d%ssnd_eq, ssnd), 'cv_eq, ssnd_eq')
    call check(near(d%dtdu_d, 1/cv) .and. near(d%dpdu_d, dpdt/cv), 'dtdu_d, dpdu_d')
    call check(near(d%dtdd_u, (t*dpdt - pres)/(rho**2*cv)), 'dtdd_u')
    call check(near(d%dpdd_u, dpdd + dpdt*d%dtdd_u), 'dpdd_u')
    call check(near(d%dddp_h, 1/(dpdd - dpdt*dhdd/dhdt)), 'dddp_h')
    call check(near(d%dtdp_h, -dhdd/dhdt*d%dddp_h), 'dtdp_h')
    call check(near(d%dtdh_p, 1/cp) .and. near(d%dddh_p, 1/d%dhdd_p), 'dtdh_p, dddh_p')
    dtdd_s = t*dpdt/(rho**2*cv)
    call check(near(d%dddp_s, 1000/ssnd**2) .and. near(d%dtdp_s, dtdd_s*d%dddp_s), 'dddp_s, dtdp_s')
    call check(near(d%dhdd_p, dhdd - dhdt*dpdd/dpdt) .and. near(d%dhdp_d, dhdt/dpdt), 'dhdd_p, dhdp_d')
    call check(near(d%dsdd_p, dsdd - dsdt*dpdd/dpdt) .and. near(d%dsdp_d, dsdt/dpdt), 'dsdd_p, dsdp_d')
    call check(near(d%compr_s, d%dddp_s/rho) .and. near(d%compr_t, 1/(rho*dpdd)), 'compr_s, compr_t')
    call check(near(d%expan_p, dpdt/(rho*dpdd)), 'expan_p')
    call check(near(d%fundam, 1 + rho/ssnd*(d%dssnddd_t + d%dssnddt_d*dtdd_s)), 'fundam')
    call check(d%dqualdd_t == 0 .and. d%dqualdt_d == 0, 'dqual, of a mark')
    do k = 1, 2
      do i = 1, 2
        call co2_td(t + merge(2*i - 3, 0, k == 2)*0.01_dp, rho + merge(2*i - 3, 0, k == 1)*0.01_dp, &
          ierr, ssnd=v(1, i, k), visc=v(2, i, k), cond=v(3, i, k))
      end do
    end do
    call check(all(abs((v(:, 2, 1) - v(:, 1, 1))/0.02_dp/[d%dssnddd_t, d%dviscdd_t, d%dconddd_t] - 1) &
      < 1e-5_dp), 'd.../drho by differences')
    call check(all(abs((v(:, 2, 2) - v(:, 1, 2))/0.02_dp/[d%dssnddt_d, d%dviscdt_d, d%dconddt_d] - 1) &
      < 1e-5_dp), 'd.../dT by differences')
  end subroutine

  ! Every entry leads to the state of co2_td with the outputs under their names, by position and with
  ! the derivatives.
  subroutine every_entry()
    real(dp), parameter :: t = 403, rho = 311
    real(dp) :: p, u, h, s
    integer(int32) :: ierr
    call co2_td(t, rho, ierr, pres=p, inte=u, enth=h, entr=s)
    call check_entry('co2_td', t, rho)
    call check_entry('co2_tp', t, p)
    call check_entry('co2_ph', p, h)
    call check_entry('co2_ps', p, s)
    call check_entry('co2_du', rho, u)
    call check_entry('co2_dh', rho, h)
    call check_entry('co2_ds', rho, s)
    call check_entry('co2_dp', rho, p)
    call check_entry('co2_hs', h, s)
    call check_entry('co2_pu', p, u)
    call check_entry('co2_ts', t, s)
    call check_entry('co2_tx', 280.0_dp, 0.25_dp)
    call check_entry('co2_px', 4000.0_dp, 0.25_dp)
  end subroutine

  subroutine check_entry(entry, first, second)
    character(*), intent(in) :: entry
    real(dp), intent(in) :: first, second
    real(dp) :: temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond
    real(dp) :: dpdd, dpdt, dhdd, dhdt, dsdd, dsdt, a(19, 1), b(19), slopes(30)
    integer(int32) :: ierr
    type(co2_derivatives) :: d
    select case (entry)
    EACH(NAMED)
    end select
    call check(ierr <= 0, entry//': ierr')
    a(:, 1) = [temp, pres, dens, svol, qual, inte, enth, entr, cv, cp, ssnd, visc, cond, &
      dpdd, dpdt, dhdd, dhdt, dsdd, dsdt]
    select case (entry)
    EACH(WITH_SET)
    end select
    call check(all(a(:, 1) == b), entry//': by name and by position')
    slopes = transfer(d, slopes)
    call co2_td_derivatives(temp, dens, ierr, d, IN_ORDER(OF_ONE))
    call check(all(near(a(:, 1), b)), entry//': outputs of co2_td')
    call check(all(near(slopes, transfer(d, slopes))), entry//': derivatives of co2_td')
    if (qual < 1) return
    call check(near(temp, 403.0_dp) .and. near(dens, 311.0_dp), entry//': the state')
  end subroutine

  subroutine scalar_calls()
    real(dp) :: t, p, u, w(3), nan
    integer(int32) :: ierr
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

  ! All outputs of a batch against those of single calls, in places of their own, and derivatives in a
  ! section, backwards.
  subroutine check_batch(entry, firsts, seconds)
    character(*), intent(in) :: entry
    real(dp), intent(in) :: firsts(:), seconds(:)
    real(dp) :: all_of(19, size(firsts))
    type(co2_derivatives) :: ds(2*size(firsts))
    integer(int32) :: codes(size(firsts))
    integer :: i
    ds%fundam = canary
    call solve(entry, firsts, seconds, codes, all_of, ds)
    call check(all(ds(1::2)%fundam == canary), entry//': what lies between')
    do i = 1, size(firsts)
      call check_one(entry, firsts(i), seconds(i), codes(i), all_of(:, i), ds(size(ds) + 2 - 2*i))
    end do
  end subroutine

  subroutine solve(entry, first, second, codes, a, ds)
    character(*), intent(in) :: entry
    real(dp), intent(in) :: first(:), second(:)
    integer(int32), intent(out) :: codes(:)
    real(dp), intent(out) :: a(:, :)
    type(co2_derivatives), intent(inout) :: ds(:)
    integer(int32) :: codes_too(size(codes))
    logical :: ok, ok_too
    select case (entry)
    EACH(ARRAYS)
    end select
    call check(ok .and. ok_too, entry//': sizes agree')
    call check(all(codes == codes_too), entry//': codes with derivatives')
  end subroutine

  subroutine check_one(entry, first, second, code, outputs, derivatives)
    character(*), intent(in) :: entry
    real(dp), intent(in) :: first, second, outputs(:)
    integer(int32), intent(in) :: code
    type(co2_derivatives), intent(in) :: derivatives
    type(co2_derivatives) :: d
    real(dp) :: b(19)
    integer(int32) :: ierr
    select case (entry)
    EACH(WITH_SET)
    end select
    call check(code == ierr, entry//': code of a batch')
    call check(all(outputs == b), entry//': outputs of a batch')
    call check(same(derivatives, d), entry//': derivatives')
  end subroutine

  subroutine array_calls()
    type(cell) :: cells(3)
    real(dp) :: field(2, 3), nothing(0), result(0), t(3), one
    integer(int32) :: codes(6), none(0), ierr
    integer :: i
    ! Vapour or liquid, supercritical, a mixture or an error.
    call check_batch('co2_td', [280.0_dp, 400.0_dp, 280.0_dp], [20.0_dp, 300.0_dp, 300.0_dp])
    call check_batch('co2_tp', [280.0_dp, 400.0_dp, 200.0_dp], [1e3_dp, 9e3_dp, 1e3_dp])
    call check_batch('co2_ph', [1e3_dp, 9e3_dp, 3e3_dp], [480.0_dp, 600.0_dp, 300.0_dp])
    call check_batch('co2_ps', [1e3_dp, 9e3_dp, 3e3_dp], [2.2_dp, 2.1_dp, 1.4_dp])
    call check_batch('co2_du', [20.0_dp, 300.0_dp, 300.0_dp], [440.0_dp, 480.0_dp, 300.0_dp])
    call check_batch('co2_dh', [20.0_dp, 300.0_dp, 300.0_dp], [490.0_dp, 530.0_dp, 300.0_dp])
    call check_batch('co2_ds', [20.0_dp, 300.0_dp, 300.0_dp], [2.2_dp, 1.9_dp, 1.4_dp])
    call check_batch('co2_dp', [20.0_dp, 300.0_dp, 300.0_dp], [1e3_dp, 2e4_dp, 3e3_dp])
    call check_batch('co2_hs', [480.0_dp, 600.0_dp, 300.0_dp], [2.2_dp, 2.1_dp, 1.4_dp])
    call check_batch('co2_pu', [1e3_dp, 9e3_dp, 3e3_dp], [440.0_dp, 500.0_dp, 300.0_dp])
    call check_batch('co2_ts', [280.0_dp, 400.0_dp, 280.0_dp], [2.2_dp, 2.1_dp, 1.4_dp])
    call check_batch('co2_tx', [280.0_dp, 260.0_dp, 310.0_dp], [0.2_dp, 1.0_dp, 0.5_dp])
    call check_batch('co2_px', [4e3_dp, 3e3_dp, 4e3_dp], [0.2_dp, 0.0_dp, 1.5_dp])

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

  ! A scalar beside arrays, and arrays of rank 2 and 3: whole ones, the inner cells of a block with a
  ! margin, planes of it and a dimension backwards.
  subroutine fields_of_higher_rank()
    integer, parameter :: n(3) = [5, 4, 6]
    integer, parameter :: boxes(6, 4) = &
      reshape([2, 2, 2, 4, 3, 5, 1, 1, 3, 5, 4, 3, 1, 2, 1, 5, 2, 6, 3, 1, 1, 3, 4, 6], [6, 4])
    real(dp), dimension(5, 4, 6) :: t, p, h, whole, some
    type(co2_derivatives) :: slopes(5, 4, 6), one
    integer(int32) :: codes(5, 4, 6), ierr
    integer :: i, j, k, a(3), b(3)
    t = reshape([(250 + 2.0_dp*i, i=1, size(t))], shape(t))
    p = reshape([(500*mod(i, 29) + 1000.0_dp, i=1, size(t))], shape(t))
    call co2_tp(t, p, codes, enth=whole)
    do k = 1, n(3)
      do j = 1, n(2)
        do i = 1, n(1)
          call co2_tp(t(i, j, k), p(i, j, k), ierr, enth=h(i, j, k))
          call check(codes(i, j, k) == ierr, 'rank 3: codes')
        end do
      end do
    end do
    call check(all(whole == h), 'rank 3: values')
    ! Inner cells, planes one cell thick.
    do j = 1, 4
      a = boxes(:3, j)
      b = boxes(4:, j)
      some = canary
      call co2_tp(t(a(1):b(1), a(2):b(2), a(3):b(3)), p(a(1):b(1), a(2):b(2), a(3):b(3)), &
        codes(a(1):b(1), a(2):b(2), a(3):b(3)), enth=some(a(1):b(1), a(2):b(2), a(3):b(3)))
      call check(count(some == h) == product(b - a + 1), 'rank 3: a part')
      call check(count(some == canary) == size(t) - product(b - a + 1), 'rank 3: what lies around')
    end do

    some = canary
    call co2_tp(t(2, 4:1:-1, 2:), p(2, 4:1:-1, 2:), codes(2, 4:1:-1, 2:), enth=some(2, 4:1:-1, 2:))
    call check(all(some(2, :, 2:) == h(2, :, 2:)), 'rank 2: a section, backwards')
    call check(count(some == canary) == size(some) - 20, 'rank 2: what lies around')
    call co2_tp(t(:, :, 1) + 0, 2000.0_dp, codes(:, :, 1), enth=some(:, :, 1))
    call co2_tp(250.0_dp, t(:, 1, 2)*20, codes(:, 1, 2), enth=some(:, 1, 2))
    slopes%dqualdt_d = canary
    call co2_tp_derivatives(t(5:1:-1, 1, :), p(5:1:-1, 1, :), codes(:, 1, :), slopes(5:1:-1, 1, :))
    call co2_tp_derivatives(t(2:4:2, 2:, :3), 9000.0_dp, codes(2:4:2, 2:, :3), slopes(2:4:2, 2:, :3), &
      enth=some(2:4:2, 2:, 4:))
    do i = 1, n(1)
      call co2_tp(t(i, 2, 1), 2000.0_dp, ierr, enth=h(i, 1, 1))
      call check(some(i, 2, 1) == h(i, 1, 1), 'rank 2 and a scalar')
      call co2_tp(250.0_dp, t(i, 1, 2)*20, ierr, enth=h(i, 1, 1))
      call check(some(i, 1, 2) == h(i, 1, 1), 'a scalar and rank 1')
      do j = 1, n(2)
        do k = 1, n(3)
          call co2_tp_derivatives(t(i, j, k), merge(p(i, j, k), 9000.0_dp, j == 1), ierr, one)
          call check(same(slopes(i, j, k), one) .eqv. j == 1 .or. (mod(i, 2) == 0 .and. k <= 3), &
            'derivatives of ranks 2 and 3, and what lies around')
        end do
      end do
    end do
    call co2_tp(t(4, 3, 2), 9000.0_dp, ierr, enth=h(1, 1, 1))
    call check(some(4, 3, 5) == h(1, 1, 1), 'rank 3 beside derivatives')
  end subroutine

  subroutine unequal_arrays()
    real(dp) :: t(3) = 300, p(3) = 5000, h(3), short(2), turned(3, 2), one
    type(co2_derivatives) :: slopes(3)
    integer(int32) :: codes(3), other_codes(2, 3)
    logical :: ok
    codes = 77
    h = canary
    short = canary
    call co2_tp(t, p, codes, enth=h, cp=short, ok=ok)
    call check(.not. ok .and. all(codes == 77), 'a short output')
    call check(all(h == canary) .and. all(short == canary), 'nothing is written')
    call co2_tp(t, p(1:2), codes, enth=h, ok=ok)
    call check(.not. ok .and. all(h == canary), 'a short input')
    call co2_tp(t, p, codes, enth=h, temp=one, ok=ok)
    call check(.not. ok .and. all(h == canary), 'an output for all of them')
    turned = canary
    call co2_tp(t, 5000.0_dp, codes, enth=turned, ok=ok)
    call check(.not. ok .and. all(turned == canary), 'another rank')
    call co2_tp(reshape([t, t], [2, 3]), 5000.0_dp, other_codes, enth=turned, ok=ok)
    call check(.not. ok .and. all(turned == canary), 'another shape of the same size')
    slopes%cv_eq = canary
    call co2_tp_derivatives(t, p, codes, slopes(1:2), enth=h, ok=ok)
    call check(.not. ok .and. all(slopes%cv_eq == canary), 'short derivatives')
  end subroutine

  subroutine saturation()
    real(dp), parameter :: temps(3) = [280, 310, 250]
    type(co2_state) :: liq, vap, phases(2, 3)
    type(co2_derivatives) :: of_liq, of_vap, of_td, of_phases(2, 3)
    real(dp) :: heat, slope, heats(3), slopes(3), b(19), all_of(19)
    integer(int32) :: ierr, codes(3)
    integer :: i
    logical :: ok
    call co2_sat_t(temps(1), ierr, liq, vap, heat, slope)
    call check(ierr == 0 .and. liq%dens == calc_sat_liq_dens(temps(1)), 'sat_t: liquid')
    call check(vap%dens == calc_sat_vap_dens(temps(1)), 'sat_t: vapour')
    call check(heat == vap%enth - liq%enth, 'sat_t: latent heat')
    call check(near(slope, (vap%entr - liq%entr)/(vap%svol - liq%svol)), 'sat_t: slope')
    call check(liq%pres == calc_sat_pres(temps(1)) .and. vap%pres == liq%pres, 'sat_t: pres')
    call check(liq%qual == 0 .and. vap%qual == 1, 'sat_t: qual')
    call co2_td(temps(1), vap%dens, ierr, IN_ORDER(OF_ONE))
    all_of = transfer(vap, all_of)
    call check(all(near([all_of(:4), all_of(6:)], [b(:4), b(6:)])), 'sat_t: outputs of co2_td')
    call co2_sat_p(liq%pres, ierr, vap=vap, dpdt_sat=slopes(1))
    call check(ierr == 0 .and. near(vap%temp, temps(1)) .and. near(slopes(1), slope), 'sat_p')

    call co2_sat_t(temps(3:1:-1), codes, phases(1, 3:1:-1), phases(2, 3:1:-1), heats, slopes, &
      of_phases(1, 3:1:-1), of_phases(2, 3:1:-1), ok)
    call check(ok .and. all(codes == [0, 1202, 0]), 'sat_t: codes of a batch')
    do i = 1, 3
      call co2_sat_t(temps(i), ierr, liq, vap, heat, slope, of_liq, of_vap)
      call check(all(transfer(phases(1, i), b) == transfer(liq, b)), 'sat_t: liquid of a batch')
      call check(all(transfer(phases(2, i), b) == transfer(vap, b)), 'sat_t: vapour of a batch')
      call check(heats(4 - i) == heat .and. slopes(4 - i) == slope, 'sat_t: line of a batch')
      call check(all(transfer(of_phases(:, i), b) == transfer([of_liq, of_vap], b)), &
        'sat_t: derivatives of a batch')
      call co2_td_derivatives(temps(i), merge(liq%dens, vap%dens, i == 1), ierr, of_td)
      call check(all(transfer(of_td, b) == transfer(merge(of_liq, of_vap, i == 1), b)), &
        'sat_t: derivatives of co2_td')
    end do
    call co2_sat_p(phases(1, :)%pres, codes, liq=phases(2, :))
    call check(all(codes == [0, 1303, 0]) .and. all(near(phases(2, :)%temp, [280, 0, 250]*1.0_dp)), &
      'sat_p of a batch')
    heats = canary
    call co2_sat_p(phases(1, :)%pres, codes, latent_heat=heats(1:2), ok=ok)
    call check(.not. ok .and. all(heats == canary), 'sat_p: a short output')
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
