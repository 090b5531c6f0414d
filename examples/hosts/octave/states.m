% What the function of co2.cpp does; ends with an error if it does not.

[pres, enth, cp] = co2("td", 310, 600, "pres", "enth", "cp");
printf("%.1f kPa, %.2f kJ/kg, %.3f kJ/(kg K)\n", pres, enth, cp);

% An array, and a scalar that serves all of it: there and back.
temp = [250, 300, 350; 400, 800, 1200];
enth = co2("tp", temp, 9000, "enth");
back = co2("ph", 9000, enth, "temp");
assert(back, temp, -1e-9);

% Boiling at 5 MPa: heat capacities have no value in two phases, all else has.
[dens, cp, qual, ierr] = co2("ph", 5000, [200; 300; 500], "dens", "cp", "qual");
assert(isnan(cp), [false; true; false]);
assert(all(diff(dens) < 0) && qual(2) > 0 && qual(2) < 1 && isequal(ierr, int32([0; -301; 0])));

% Errors: an array with codes, or an error that names the first state.
[dens, ierr] = co2("tp", [300, 2000], 8000, "dens");
assert(isequal(isnan(dens), [false, true]) && isequal(ierr, int32([0, 202])));
fail('co2("tp", [300, 2000], 8000, "dens")', "state 2: CO2_TP: .*1500");
fail('co2("tp", [300, 310], [8; 9], "dens")', "one shape");
fail('co2("tp", 300, 8000, "density")', "no property called 'density'");
fail('co2("tp", 300, 8000, "dens", "dens")', "'dens' twice");
