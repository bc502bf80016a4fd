# Debian packages of the install components, made by CPack (./dev package): libkdrdata1 with all
# shared libraries, libkdrdata-dev, libkdrdata-doc, and kdrdata-tools and python3-kdrdata where they
# are built. Meant to be configured with the prefix /usr, as the preset `package` does.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libkdrdata)
set(CPACK_PACKAGE_VENDOR "KDRData")
set(CPACK_PACKAGE_CONTACT "KDRData maintainers <maintainers@kdrdata.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_COMPONENTS_ALL runtime dev doc)
if(KDRDATA_BUILD_TOOLS)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
if(KDRDATA_BUILD_PYTHON)
    list(APPEND CPACK_COMPONENTS_ALL python)
endif()
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The program needs the libraries of the package beside its own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${PROJECT_BINARY_DIR}/kdrdata" "${PROJECT_BINARY_DIR}/kdrio" "${PROJECT_BINARY_DIR}/veldata")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(KDRDATA_DEBIAN_VERSION "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")

set(KDRDATA_DEBIAN_TEXT "Text and bytes, numbers with ranges, figures, outlines, images, run-length
encoded regions and matrices, and above them one tagged value in which every
parameter and result travels from tool to tool.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "libkdrdata${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_LIST_DIR}/debian/triggers")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${KDRDATA_DEBIAN_TEXT}
.
This package holds the shared library, the one that saves its values, and the
core data library beside them.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libkdrdata-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${KDRDATA_DEBIAN_VERSION}), qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS libkdrdata-doc)
set(CPACK_DEBIAN_DEV_DESCRIPTION "${KDRDATA_DEBIAN_TEXT}
.
This package holds the headers, the CMake packages and the pkg-config file.")

set(CPACK_DEBIAN_DOC_PACKAGE_NAME libkdrdata-doc)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DOC_DESCRIPTION "${KDRDATA_DEBIAN_TEXT}
.
This package holds the interface documentation as web pages.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME kdrdata-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${KDRDATA_DEBIAN_VERSION})")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "${KDRDATA_DEBIAN_TEXT}
.
This package holds kdrdump, which shows saved values.")

if(KDRDATA_BUILD_PYTHON)
    # The module is of one version of the interpreter.
    find_package(Python QUIET COMPONENTS Interpreter)
    math(EXPR next_minor "${Python_VERSION_MINOR} + 1")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-kdrdata)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
    string(CONCAT CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
        "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${KDRDATA_DEBIAN_VERSION}), "
        "python3 (>= ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR}), "
        "python3 (<< ${Python_VERSION_MAJOR}.${next_minor}), python3-numpy")
    set(CPACK_DEBIAN_PYTHON_DESCRIPTION "${KDRDATA_DEBIAN_TEXT}
.
This package holds the package kdrdata for Python.")
endif()

# What Debian's rules want beside the files of each package.
configure_file("${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in"
    "${PROJECT_BINARY_DIR}/debian/changelog" @ONLY)
file(ARCHIVE_CREATE OUTPUT "${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz"
    PATHS "${PROJECT_BINARY_DIR}/debian/changelog"
    FORMAT raw COMPRESSION GZip COMPRESSION_LEVEL 9)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" upper)
    install(FILES
        "${CMAKE_CURRENT_LIST_DIR}/debian/copyright"
        "${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}"
        COMPONENT ${component}
        EXCLUDE_FROM_ALL)
endforeach()
install(FILES "${CMAKE_CURRENT_LIST_DIR}/debian/libkdrdata-dev.lintian-overrides"
    DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides"
    RENAME libkdrdata-dev
    COMPONENT dev
    EXCLUDE_FROM_ALL)

include(CPack)
