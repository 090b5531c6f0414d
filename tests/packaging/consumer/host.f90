program host
  use, intrinsic :: iso_fortran_env, only: int32, real64
  use co2_properties
  implicit none
  real(real64) :: pres, enth, cp
  integer(int32) :: ierr
  call co2_td(310.0_real64, 600.0_real64, ierr, pres=pres, enth=enth, cp=cp)
  if (ierr /= 0) error stop trim(co2_error_message(ierr))
  print '(f0.1, " kPa, ", f0.2, " kJ/kg, ", f0.3, " kJ/(kg K)")', pres, enth, cp
end program
