# The modules of OpenCV that are asked for as components: core, imgcodecs, imgproc.
#
# OpenCV's own package configuration is used where it is installed. Distributions may ship it only
# with a package of all modules together, so that the headers and the libraries are looked for by
# name otherwise. Result: VelOpenCV_FOUND and one target VelOpenCV::<module> for each component.
find_package(OpenCV QUIET COMPONENTS ${VelOpenCV_FIND_COMPONENTS})
if(OpenCV_FOUND)
    set(VelOpenCV_VERSION "${OpenCV_VERSION}")
    set(VelOpenCV_INCLUDE_DIR "${OpenCV_INCLUDE_DIRS}")
else()
    find_path(VelOpenCV_INCLUDE_DIR opencv2/core/version.hpp PATH_SUFFIXES opencv4)
    mark_as_advanced(VelOpenCV_INCLUDE_DIR)
    if(VelOpenCV_INCLUDE_DIR)
        file(STRINGS "${VelOpenCV_INCLUDE_DIR}/opencv2/core/version.hpp" VelOpenCV_VERSION_LINES
            REGEX "^#define CV_VERSION_(MAJOR|MINOR|REVISION) +[0-9]+$")
        string(REGEX MATCHALL "[0-9]+" VelOpenCV_VERSION "${VelOpenCV_VERSION_LINES}")
        string(REPLACE ";" "." VelOpenCV_VERSION "${VelOpenCV_VERSION}")
    endif()
endif()

set(VelOpenCV_LIBRARY_VARIABLES)
foreach(module IN LISTS VelOpenCV_FIND_COMPONENTS)
    if(OpenCV_FOUND)
        set(VelOpenCV_${module}_LIBRARY opencv_${module})
    else()
        find_library(VelOpenCV_${module}_LIBRARY opencv_${module})
        mark_as_advanced(VelOpenCV_${module}_LIBRARY)
    endif()
    list(APPEND VelOpenCV_LIBRARY_VARIABLES VelOpenCV_${module}_LIBRARY)
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(VelOpenCV
    REQUIRED_VARS VelOpenCV_INCLUDE_DIR ${VelOpenCV_LIBRARY_VARIABLES}
    VERSION_VAR VelOpenCV_VERSION)

if(VelOpenCV_FOUND)
    foreach(module IN LISTS VelOpenCV_FIND_COMPONENTS)
        if(NOT TARGET VelOpenCV::${module})
            add_library(VelOpenCV::${module} INTERFACE IMPORTED)
            set_target_properties(VelOpenCV::${module} PROPERTIES
                INTERFACE_INCLUDE_DIRECTORIES "${VelOpenCV_INCLUDE_DIR}"
                INTERFACE_LINK_LIBRARIES "${VelOpenCV_${module}_LIBRARY}")
        endif()
    endforeach()
endif()
