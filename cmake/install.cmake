# What `cmake --install` and `cpack` put where.
include(CMakePackageConfigHelpers)

# The include folder of a host sees the two public headers and a folder, no limits.hpp or status.hpp
# that its own could be taken for.
install(FILES ${PROJECT_SOURCE_DIR}/src/api/co2_properties.h
  ${PROJECT_SOURCE_DIR}/src/api/co2_properties.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/api/co2_properties
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CITATION.cff
  DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(co2_config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/co2_properties)
install(TARGETS co2_properties EXPORT co2_properties)
if(TARGET co2_properties_fortran)
  install(TARGETS co2_properties_fortran EXPORT co2_properties)
  # Module files are tied to a compiler; the source serves others.
  install(FILES $<TARGET_PROPERTY:co2_properties_fortran,Fortran_MODULE_DIRECTORY>/co2_properties.mod
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/bindings/fortran/co2_properties.f90
    DESTINATION ${CMAKE_INSTALL_DATADIR}/co2_properties)
endif()
install(EXPORT co2_properties FILE co2_properties-targets.cmake NAMESPACE co2_properties::
  DESTINATION ${co2_config_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/co2_properties-config.cmake.in
  ${PROJECT_BINARY_DIR}/cmake/co2_properties-config.cmake INSTALL_DESTINATION ${co2_config_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/co2_properties-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/cmake/co2_properties-config.cmake
  ${PROJECT_BINARY_DIR}/cmake/co2_properties-config-version.cmake DESTINATION ${co2_config_dir})

# pkg-config: paths relative to the .pc file, so that an installed tree can be moved. A static
# library needs what it links to on the same command line.
set(co2_pc_dir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH co2_pc_prefix ${co2_pc_dir} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" co2_pc_prefix ${co2_pc_prefix})
file(RELATIVE_PATH co2_pc_includedir ${co2_pc_dir} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
set(co2_pc_libs)
if(NOT BUILD_SHARED_LIBS)
  set(co2_pc_libs -lm)
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/co2_properties.pc.in
  ${PROJECT_BINARY_DIR}/cmake/co2_properties.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cmake/co2_properties.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# `cpack` makes a Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME co2-properties)
set(CPACK_PACKAGE_CONTACT "The co2_properties developers <noreply@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION "Library for C++, C and Fortran, and the command line co2.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ${BUILD_SHARED_LIBS})
include(CPack)
