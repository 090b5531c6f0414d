# What `cmake --install` and `cpack` put where. Components: `lib` is what a program needs that was
# linked to the shared library, `dev` what building one needs, with the documentation, `tools` the
# command line.
include(CMakePackageConfigHelpers)
find_program(CO2_GZIP gzip)
mark_as_advanced(CO2_GZIP)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME dev)

# co2_gzip(FILE RESULT): path of the compressed file, or of the file itself where there is no gzip.
function(co2_gzip file result)
  if(CO2_GZIP)
    get_filename_component(name ${file} NAME)
    execute_process(COMMAND ${CO2_GZIP} -9nc ${file}
      OUTPUT_FILE ${PROJECT_BINARY_DIR}/cmake/${name}.gz COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    set(file ${PROJECT_BINARY_DIR}/cmake/${name}.gz)
  endif()
  set(${result} ${file} PARENT_SCOPE)
endfunction()

# The include folder of a host sees the two public headers and a folder, no limits.hpp or status.hpp
# that its own could be taken for.
install(FILES ${PROJECT_SOURCE_DIR}/src/api/co2_properties.h
  ${PROJECT_SOURCE_DIR}/src/api/co2_properties.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/api/co2_properties
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE
  ${PROJECT_SOURCE_DIR}/CITATION.cff DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING PATTERN *.md PATTERN *.png)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/brayton
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/hosts
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples USE_SOURCE_PERMISSIONS)

set(co2_config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/co2_properties)
install(TARGETS co2_properties EXPORT co2_properties
  LIBRARY COMPONENT lib NAMELINK_COMPONENT dev ARCHIVE COMPONENT dev)
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

if(TARGET co2)
  install(TARGETS co2 RUNTIME COMPONENT tools)
  co2_gzip(${PROJECT_SOURCE_DIR}/tools/co2/co2.1 page)
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/co2/completion.bash RENAME co2
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/co2/completion.zsh RENAME _co2
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT tools)
endif()

if(UNIX AND NOT APPLE)
  include(cmake/debian.cmake)
endif()
