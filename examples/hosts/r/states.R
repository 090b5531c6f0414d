# What the function of co2.R does; ends with an error if it does not.
source("co2.R")

state <- co2("td", 310, 600, c("pres", "enth", "cp"))
cat(sprintf("%.1f kPa, %.2f kJ/kg, %.3f kJ/(kg K)\n", state$pres, state$enth, state$cp))

# A column of a data frame, and a number that serves all of it: there and back.
cells <- data.frame(temp = c(250, 300, 350, 400, 800, 1200))
cells$enth <- co2("tp", cells$temp, 9000, "enth")$enth
stopifnot(all.equal(co2("ph", 9000, cells$enth, "temp")$temp, cells$temp, tolerance = 1e-9))

# Boiling at 5 MPa: heat capacities have no value in two phases, all else has.
boiling <- co2("ph", 5000, c(200, 300, 500), c("dens", "cp", "qual"))
stopifnot(is.na(boiling$cp) == c(FALSE, TRUE, FALSE), boiling$ierr == c(0, -301, 0),
          diff(boiling$dens) < 0, boiling$qual[2] > 0, boiling$qual[2] < 1)

# Errors: NA, a code and a warning that names the first state.
hot <- tryCatch(co2("tp", c(300, 2000), 8000, "dens"), warning = conditionMessage)
stopifnot(grepl("1 of 2 states failed, the first is 2: CO2_TP: .*1500", hot))
hot <- suppressWarnings(co2("tp", c(300, 2000), 8000, "dens"))
stopifnot(is.na(hot$dens) == c(FALSE, TRUE), hot$ierr == c(0, 202))
unknown <- tryCatch(co2("tp", 300, 8000, "density"), error = conditionMessage)
stopifnot(grepl("no property called 'density'", unknown))
twice <- tryCatch(co2("tp", 300, 8000, c("dens", "dens")), error = conditionMessage)
stopifnot(grepl("'dens' twice", twice))
