# `cpack` makes Debian packages of the components: the shared library, what building with it needs
# (also a static library, and then there is no first), and the command line.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME co2-properties)
set(CPACK_PACKAGE_CONTACT "The co2_properties developers <noreply@example.org>")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENTS_ALL dev)
set(co2_soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libco2-properties-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_DESCRIPTION
"Development files: headers for C++ and C, the Fortran module, CMake and
pkg-config files, documentation and an example.")

if(BUILD_SHARED_LIBS)
  list(PREPEND CPACK_COMPONENTS_ALL lib)
  set(CPACK_COMPONENT_DEV_DEPENDS lib)
  set(CPACK_COMPONENT_TOOLS_DEPENDS lib)
  set(CPACK_DEBIAN_LIB_PACKAGE_NAME libco2-properties${co2_soversion})
  set(CPACK_DEBIAN_LIB_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_LIB_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
  file(WRITE ${PROJECT_BINARY_DIR}/cmake/triggers "activate-noawait ldconfig\n")
  set(CPACK_DEBIAN_LIB_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/cmake/triggers)
  set(CPACK_DEBIAN_LIB_DESCRIPTION
"Shared library: gas, liquid, supercritical and two-phase states, from
piecewise polynomial fits that are compiled in.")
endif()

if(TARGET co2)
  list(APPEND CPACK_COMPONENTS_ALL tools)
  set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME co2-properties-tools)
  set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION science)
  set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
  set(CPACK_DEBIAN_TOOLS_DESCRIPTION
"Command line: the program co2 prints the properties of a state, or adds
them to a comma-separated file of states.")
endif()

# Licence and changes where Debian looks for them; `cmake --install` leaves these out.
co2_gzip(${PROJECT_SOURCE_DIR}/CHANGELOG.md changes)
get_filename_component(ending ${changes} LAST_EXT)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} name)
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${name}_PACKAGE_NAME})
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${folder} RENAME copyright
    COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES ${changes} DESTINATION ${folder} RENAME changelog${ending}
    COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()
include(CPack)
