# Flags of everything that is built here. Contraction is off so that results do not depend on
# whether the target has fused multiply-add.
add_library(co2_compile_options INTERFACE)
target_compile_options(co2_compile_options INTERFACE
  -ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<BOOL:${CO2_WARNINGS_AS_ERRORS}>:-Werror>)
if(CO2_SANITIZE)
  target_compile_options(co2_compile_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(co2_compile_options INTERFACE -fsanitize=address,undefined)
endif()
