# Properties of carbon dioxide. `entry` says what `a` and `b` are: "td", "tp", "ph", "ps", "du",
# "dh", "ds", "dp", "hs", "pu", "ts", "tx" or "px"; vectors of one length, or one of them a single
# number. A data frame with a column for each of `outputs`, and the status codes as `ierr`, 0 where
# all is well; units are those of the library (K, kPa, kg/m3, kJ/kg, kJ/(kg K), m/s, uPa s,
# W/(m K)). NA where there is no value, such as a heat capacity in two phases. Errors are counted in
# a warning.
dyn.load(paste0("co2", .Platform$dynlib.ext))

co2 <- function(entry, a, b, outputs) {
  if (length(a) != length(b) && length(a) != 1 && length(b) != 1)
    stop("co2: vectors of length ", length(a), " and ", length(b))
  values <- .Call("co2_call", entry, as.double(a), as.double(b), outputs)
  names(values) <- c(outputs, "ierr")
  failed <- values$ierr > 0
  # The library says 0 where there is no value; of all properties only the quality can be 0.
  for (name in outputs) {
    values[[name]][failed | (values[[name]] == 0 & name != "qual")] <- NA
  }
  if (any(failed)) {
    first <- which(failed)[1]
    warning("co2: ", sum(failed), " of ", length(failed), " states failed, the first is ", first,
            ": ", trimws(.Call("co2_message", values$ierr[first])))
  }
  as.data.frame(values)
}
