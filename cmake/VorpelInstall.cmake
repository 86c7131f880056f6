# SPDX-License-Identifier: Apache-2.0
# What `cmake --install` lays down: library, headers, programs, language data, CMake package, pkg-config file.
include(CMakePackageConfigHelpers)
include(PublicHeaders)

set(data_destination ${CMAKE_INSTALL_DATADIR}/vorpel)
set(package_destination ${CMAKE_INSTALL_LIBDIR}/cmake/vorpel)

install(TARGETS libvorpel EXPORT vorpelTargets)
install(TARGETS vorpel vorpel-playground)
install(DIRECTORY include/vorpel DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# Inside the tree headers name each other from src/; installed, they must not meet a host's own "text/..."
# and so name each other from vorpel/.
foreach(header ${VORPEL_PUBLIC_HEADERS})
  set(source ${PROJECT_SOURCE_DIR}/src/${header})
  if(NOT EXISTS ${source})
    message(FATAL_ERROR "cmake/PublicHeaders.cmake names ${header}, which does not exist")
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  file(READ ${source} text)
  string(REGEX REPLACE "#include \"(vorpel/)?([a-z_0-9/]+\\.h)\"" "#include <vorpel/\\2>" text "${text}")
  set(installed ${PROJECT_BINARY_DIR}/installed_headers/vorpel/${header})
  file(CONFIGURE OUTPUT ${installed} CONTENT "${text}" @ONLY)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${installed} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vorpel/${folder})
endforeach()

install(DIRECTORY ${VORPEL_DATA_DIR}/ DESTINATION ${data_destination} OPTIONAL
        FILES_MATCHING PATTERN "*.dic" PATTERN "*.json"
        PATTERN "images" EXCLUDE PATTERN "themes" EXCLUDE PATTERN "alternatives" EXCLUDE)

install(DIRECTORY data/images DESTINATION ${data_destination} FILES_MATCHING PATTERN "*.svg")
install(DIRECTORY data/themes data/alternatives DESTINATION ${data_destination}
        FILES_MATCHING PATTERN "*.json")

configure_package_config_file(cmake/vorpelConfig.cmake.in vorpelConfig.cmake
  INSTALL_DESTINATION ${package_destination} PATH_VARS data_destination CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(vorpelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vorpelConfig.cmake ${PROJECT_BINARY_DIR}/vorpelConfigVersion.cmake
        DESTINATION ${package_destination})
install(EXPORT vorpelTargets NAMESPACE vorpel:: DESTINATION ${package_destination})

# The prefix is found from where the file lies, so that an installation can be moved.
file(RELATIVE_PATH pkgconfig_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/vorpel.pc.in vorpel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vorpel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
