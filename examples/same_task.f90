! Where is the Sun overhead at the June solstice of 2026, and how high is the geoid there? In Fortran; same_task.c is the
! same in C.
program same_task
  use kitlib
  implicit none
  real(c_double), parameter :: degrees = 180.0_c_double / acos(-1.0_c_double), too_late = 40000.0_c_double
  character(len=*), parameter :: solstice = "2026-06-21T08:24:00"
  type(kl_time_id) :: time_id
  type(kl_model_id), target :: model_id ! the default models
  type(kl_geoid_input) :: input
  real(c_double) :: time, sun_pos(3), sun_vel(3), undulation
  integer(c_long) :: ierr(1), n = 0
  character(kind=c_char) :: messages(512, KL_MAX_MSG)

  ! No files: UT1, leap seconds and the pole are those compiled in.
  call need(kl_time_id_init(n_files=0_c_long, window=KL_TIME_WINDOW_FILE, time_id=time_id, ierr=ierr))
  call need(kl_time_ascii_to_processing(time_id, KL_ASCII_41, KL_TIME_UTC, solstice // c_null_char, KL_PROC, KL_TIME_UTC, &
                                        time, ierr))
  call need(kl_sun(model_id, time_id, KL_TIME_UTC, time, sun_pos, sun_vel, ierr))
  input%model_id = c_loc(model_id)
  input%latitude = degrees * atan2(sun_pos(3), hypot(sun_pos(1), sun_pos(2)))
  input%longitude = modulo(degrees * atan2(sun_pos(2), sun_pos(1)), 360.0_c_double)
  input%max_degree = 360
  call need(kl_geoid_calc(input, undulation, ierr))
  print '(A, A, F0.2)', solstice, " UTC is day ", time
  print '(A, F0.2, A, F0.2, A)', "Sun overhead at ", input%latitude, " deg north, ", input%longitude, " deg east"
  print '(A, F0.2, A)', "Geoid there: ", undulation, " m"

  if (kl_sun(model_id, time_id, KL_TIME_UTC, too_late, sun_pos, sun_vel, ierr) == KL_ERR) then
    if (kl_get_msg(KL_ID_FUNC_SUN, ierr, n, messages) == 0 .and. n > 0) &
      print '(A, I0, A, A)', "Day ", nint(too_late), ": ", text(messages(:, 1))
  end if
  call need(kl_time_close(time_id, ierr))

contains

  ! Ends the program with the messages of a failed call.
  subroutine need(status)
    integer(c_long), intent(in) :: status
    integer(c_long) :: printed
    if (status /= KL_ERR) return
    if (kl_get_last_msg(n, messages) == 0) printed = kl_print_msg(n, messages)
    error stop
  end subroutine need

  pure function text(letters)
    character(kind=c_char), intent(in) :: letters(:)
    character(len=findloc(letters, c_null_char, 1) - 1) :: text
    integer :: i
    do i = 1, len(text)
      text(i:i) = letters(i)
    end do
  end function text

end program same_task
