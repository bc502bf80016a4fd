include_guard(GLOBAL)
include(GoogleTest)

# The warnings that this project holds its own code to. Whether a warning is an
# error is the builder's choice: CMAKE_COMPILE_WARNING_AS_ERROR, set by the CI presets.
function(kdr_enable_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
endfunction()

option(KDRDATA_COVERAGE "Let the libraries record which of their lines and branches are reached" OFF)

# Only the libraries: the tests are compiled as always. Unoptimised code has branches of the compiler's
# own on the way of exceptions, which always go the same way.
function(kdr_record_coverage target)
    if(KDRDATA_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic -O1)
        target_link_options(${target} PRIVATE --coverage)
    endif()
endfunction()

# A shared library that exports on purpose only: hidden by default, and a linker
# version script that also keeps weak instantiations of other libraries' templates in.
function(kdr_exports_only target version_script)
    set_target_properties(${target} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LINK_DEPENDS "${version_script}")
    target_link_options(${target} PRIVATE "LINKER:--version-script=${version_script}")
endfunction()

# Calls from inside a shared library to its own exported functions go straight there and may be
# inlined, instead of through the dynamic linker's table. Nobody can put a function of theirs in the
# place of one of the library's for the library's own calls; for calls from outside they still can.
function(kdr_calls_itself_directly target)
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    target_link_options(${target} PRIVATE "LINKER:-Bsymbolic-functions")
    # With g++, from one source file into another too. The objects keep ordinary code beside what
    # the linker optimises, for all who look into them.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        set(lto "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-flto=auto;-ffat-lto-objects>")
        target_compile_options(${target} PRIVATE "${lto}")
        target_link_options(${target} PRIVATE "${lto}")
    endif()
endfunction()

option(KDRDATA_LUMPS "Compile sources that spend their time in headers in lumps" ON)

# kdr_compile_in_lumps(TARGET SIZE [APART...]): compiles the sources of a target in lumps of so many, in a
# third of the time and less, but for those apart. Where that is off, each is seen to include what it needs.
function(kdr_compile_in_lumps target size)
    set_target_properties(${target} PROPERTIES
        UNITY_BUILD ${KDRDATA_LUMPS}
        UNITY_BUILD_BATCH_SIZE ${size}
        UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# GoogleTest's header takes longer to read than most tests, so that it is read once for the tests of
# the core library, with that of their witness, and once for those above it, whose code is
# position-independent for Qt.
function(kdr_precompile_gtest target)
    if(PROJECT_NAME STREQUAL "VelData")
        set(host kdr_precompiled_gtest)
        set(flags VelOpenCV::core)
        set(headers <gtest/gtest.h> <opencv2/core.hpp>)
    else()
        set(host kdr_precompiled_gtest_qt)
        set(flags Qt5::Core)
        set(headers <gtest/gtest.h>)
    endif()
    if(NOT TARGET ${host})
        add_library(${host} OBJECT "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/precompiled.cpp")
        target_compile_features(${host} PRIVATE cxx_std_17)
        target_link_libraries(${host} PRIVATE GTest::gtest ${flags})
        target_precompile_headers(${host} PRIVATE ${headers})
        target_compile_options(${host} PRIVATE -O0)
        kdr_enable_warnings(${host})
    endif()
    target_precompile_headers(${target} REUSE_FROM ${host})
endfunction()

# A GoogleTest executable whose every case is a test of its own process, so that
# process-wide state (the local text codec) cannot leak from one case to the next.
# Never optimised, whatever the libraries are that it tries: that takes minutes for tables of
# hundreds of operations. OWN_FLAGS says that it is compiled in another way than the other tests. LUMPS
# is how many sources are compiled together, but for those APART, whose names are also others'.
function(kdr_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "OWN_FLAGS" "PREFIX;LUMPS" "SOURCES;LIBRARIES;APART")
    add_executable(${name} ${arg_SOURCES})
    target_compile_features(${name} PRIVATE cxx_std_17)
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gtest_main)
    kdr_enable_warnings(${name})
    if(NOT arg_OWN_FLAGS)
        target_compile_options(${name} PRIVATE -O0)
        kdr_precompile_gtest(${name})
    endif()
    if(arg_LUMPS)
        kdr_compile_in_lumps(${name} ${arg_LUMPS} ${arg_APART})
    endif()
    gtest_discover_tests(${name}
        TEST_PREFIX "${arg_PREFIX}"
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120)
endfunction()
