# Fails unless PROGRAM ends well, writes EXPECTED and nothing to the error output, is short enough to be
# read at one go (SOURCE), and is shown by one of the PAGES.
cmake_minimum_required(VERSION 3.23)

execute_process(COMMAND "${PROGRAM}"
    RESULT_VARIABLE result OUTPUT_VARIABLE written ERROR_VARIABLE complaints)
file(READ "${EXPECTED}" expected)
if(NOT result STREQUAL "0" OR NOT written STREQUAL expected OR NOT complaints STREQUAL "")
    message(FATAL_ERROR "${PROGRAM} ended with ${result}\n"
        "--- and wrote\n${written}--- instead of\n${expected}--- and complained\n${complaints}")
endif()

file(READ "${SOURCE}" text)
string(REGEX REPLACE "[^\n]" "" ends "${text}")
string(LENGTH "${ends}" count)
if(NOT count LESS 60)
    message(FATAL_ERROR "${SOURCE} has ${count} lines; an example has less than 60")
endif()

cmake_path(GET SOURCE FILENAME name)
file(GLOB pages "${PAGES}/*.md")
set(shown FALSE)
foreach(page IN LISTS pages)
    file(READ "${page}" text)
    if(text MATCHES "[\\@]include topics/${name}\n")
        set(shown TRUE)
    endif()
endforeach()
if(NOT shown)
    message(FATAL_ERROR "no page of ${PAGES} includes topics/${name}")
endif()
