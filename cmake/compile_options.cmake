# Flags of everything that is built here; none of them reaches a host. Contraction is off so that
# results do not depend on whether the target has fused multiply-add.
add_library(co2_compile_options INTERFACE)
target_compile_options(co2_compile_options INTERFACE
  -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion
  $<$<COMPILE_LANGUAGE:C,CXX>:-Wshadow>
  $<$<BOOL:${CO2_WARNINGS_AS_ERRORS}>:-Werror>)
if(CO2_SANITIZE)
  target_compile_options(co2_compile_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(co2_compile_options INTERFACE -fsanitize=address,undefined)
endif()

# The library uses the headers of C++, but nothing of its run-time library: with --as-needed a
# shared library does not ask for it. With -Bsymbolic-functions the procedures call each other
# directly, whatever else the host defines.
include(CheckLinkerFlag)
check_linker_flag(CXX LINKER:--as-needed,-Bsymbolic-functions CO2_HAS_ELF_LINKER_FLAGS)

# What static and shared libraries for hosts have in common. While the version is 0.x, each minor
# version is an interface of its own.
function(co2_finish_library target)
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  get_target_property(type ${target} TYPE)
  if(CO2_HAS_ELF_LINKER_FLAGS AND type STREQUAL SHARED_LIBRARY)
    target_link_options(${target} PRIVATE LINKER:--as-needed,-Bsymbolic-functions)
  endif()
  if(CO2_SANITIZE)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
  if(UNIX)
    target_link_libraries(${target} PRIVATE m)
  endif()
endfunction()
