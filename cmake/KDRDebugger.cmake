# The pretty printers for GDB. GDB loads a file by itself that lies beside a library, or under its
# auto-load directory at the library's own path, and bears the library's name with `-gdb.py` after
# it. That file loads the printers: in the build tree from the sources, otherwise from where they are
# installed.
if(NOT UNIX OR APPLE)
    return()
endif()

set(KDRDATA_PRINTERS "${PROJECT_SOURCE_DIR}/tools/gdb")
configure_file(tools/gdb/autoload.py.in "${PROJECT_BINARY_DIR}/gdb/built.py" @ONLY)
file(GENERATE OUTPUT "$<TARGET_FILE:KDRData>-gdb.py" INPUT "${PROJECT_BINARY_DIR}/gdb/built.py")

set(KDRDATA_PRINTERS "kdrdata/gdb")
configure_file(tools/gdb/autoload.py.in "${PROJECT_BINARY_DIR}/gdb/installed.py" @ONLY)
install(DIRECTORY tools/gdb/kdrdata_gdb
    DESTINATION "${CMAKE_INSTALL_DATADIR}/kdrdata/gdb"
    COMPONENT dev
    FILES_MATCHING PATTERN "*.py")

# The prefix is known when it is installed to: the variable is left to that script.
cmake_path(IS_ABSOLUTE CMAKE_INSTALL_LIBDIR libdir_is_absolute)
if(libdir_is_absolute)
    set(library_directory "${CMAKE_INSTALL_LIBDIR}")
else()
    set(library_directory "\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}")
endif()
install(FILES "${PROJECT_BINARY_DIR}/gdb/installed.py"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load${library_directory}"
    RENAME "$<TARGET_FILE_NAME:KDRData>-gdb.py"
    COMPONENT dev)
