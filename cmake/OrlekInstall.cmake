# Install rules, the CMake package `Orlek` and the pkg-config module `orlek`.
include(CMakePackageConfigHelpers)

install(TARGETS orlek EXPORT OrlekTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET public_headers DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# Of CMake before 3.23, which knows no file sets, with the package.
target_include_directories(orlek INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Orlek")
install(EXPORT OrlekTargets NAMESPACE Orlek:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/OrlekConfig.cmake.in OrlekConfig.cmake
  INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(OrlekConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/OrlekConfig.cmake"
              "${CMAKE_CURRENT_BINARY_DIR}/OrlekConfigVersion.cmake"
              $<$<NOT:$<BOOL:${BUILD_SHARED_LIBS}>>:${PROJECT_SOURCE_DIR}/cmake/FindTinyXML.cmake>
  DESTINATION "${package_dir}")

# A project to begin with.
install(DIRECTORY examples/template DESTINATION "${CMAKE_INSTALL_DATADIR}/orlek"
  PATTERN build EXCLUDE)

# Paths relative to the .pc file, so that an installed tree may be moved; absolute ones as they are.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(ORLEK_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
else()
  file(RELATIVE_PATH ORLEK_PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  string(REGEX REPLACE "/$" "" ORLEK_PC_PREFIX "\${pcfiledir}/${ORLEK_PC_PREFIX}")
endif()
foreach(kind LIB INCLUDE)
  set(ORLEK_PC_${kind}DIR "\${prefix}/${CMAKE_INSTALL_${kind}DIR}")
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${kind}DIR}")
    set(ORLEK_PC_${kind}DIR "${CMAKE_INSTALL_${kind}DIR}")
  endif()
endforeach()
if(BUILD_SHARED_LIBS)
  set(ORLEK_PC_NEEDS_PRIVATE ".private")
endif()
configure_file(cmake/orlek.pc.in orlek.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/orlek.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
