# Installing the libraries: a CMake package, a pkg-config file each, and the public headers under the
# paths that they are included by. The core library next to it installs itself.
#
# Five components: `runtime` is what a program needs to run, `dev` what it needs to be built, `tools`
# the program that shows saved values, which kdrdump/ installs, `python` the Python package, which
# python/ installs, and `doc` the interface documentation, where it was built.
include(CMakePackageConfigHelpers)

set(KDRDATA_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/KDRData")
set(KDRDATA_PKGCONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# The core library is found beside this one, or where it was linked from.
set_target_properties(KDRData KDRDataIO PROPERTIES
    INSTALL_RPATH "$ORIGIN"
    INSTALL_RPATH_USE_LINK_PATH ON)
install(TARGETS KDRData KDRDataIO EXPORT KDRDataTargets
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT dev
    FILE_SET generated_headers DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT dev)
install(EXPORT KDRDataTargets
    NAMESPACE KDRData::
    DESTINATION "${KDRDATA_PACKAGE_DIR}"
    COMPONENT dev)

configure_package_config_file(cmake/KDRDataConfig.cmake.in
    "${PROJECT_BINARY_DIR}/KDRDataConfig.cmake"
    INSTALL_DESTINATION "${KDRDATA_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KDRDataConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/KDRDataConfig.cmake"
    "${PROJECT_BINARY_DIR}/KDRDataConfigVersion.cmake"
    DESTINATION "${KDRDATA_PACKAGE_DIR}"
    COMPONENT dev)

# The way from the pkg-config file up to the prefix, so that the installed tree can be moved; a
# library directory outside of the prefix cannot, and is written as it is.
cmake_path(IS_ABSOLUTE CMAKE_INSTALL_LIBDIR libdir_is_absolute)
if(libdir_is_absolute)
    set(KDRDATA_PKGCONFIG_PREFIX "${CMAKE_INSTALL_PREFIX}")
else()
    file(RELATIVE_PATH way_up "/${KDRDATA_PKGCONFIG_DIR}" "/")
    cmake_path(APPEND KDRDATA_PKGCONFIG_PREFIX "\${pcfiledir}" "${way_up}")
endif()
cmake_path(APPEND KDRDATA_PKGCONFIG_LIBDIR "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND KDRDATA_PKGCONFIG_INCLUDEDIR "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(cmake/kdrdata.pc.in "${PROJECT_BINARY_DIR}/kdrdata.pc" @ONLY)
configure_file(cmake/kdrdata-io.pc.in "${PROJECT_BINARY_DIR}/kdrdata-io.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/kdrdata.pc" "${PROJECT_BINARY_DIR}/kdrdata-io.pc"
    DESTINATION "${KDRDATA_PKGCONFIG_DIR}"
    COMPONENT dev)

include(KDRDebugger)

if(PROJECT_IS_TOP_LEVEL)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/docs/html"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/libkdrdata-doc"
        COMPONENT doc
        OPTIONAL)
    include(KDRPackage)
endif()
