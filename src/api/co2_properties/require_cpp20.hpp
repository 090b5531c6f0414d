#pragma once
// The first include of each header for C++: says what to do where their C++20 is not understood.

#if __cplusplus < 201709L && !(defined(_MSVC_LANG) && _MSVC_LANG > 201703L)
#error "co2_properties.hpp needs C++20 (-std=c++20); for C and older C++ there is co2_properties.h"
#endif
