#pragma once
// The host has headers of the names that the library uses within its folder.
constexpr double largest_dens = 1000.0;
