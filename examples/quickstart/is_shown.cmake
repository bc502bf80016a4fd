# Fails unless the document SHOWN_IN has the whole of the C++ file TEXT as a block of code.
cmake_minimum_required(VERSION 3.23)

file(READ "${TEXT}" text)
file(READ "${SHOWN_IN}" document)
string(FIND "${document}" "```cpp\n${text}```\n" position)
if(position EQUAL -1)
    message(FATAL_ERROR "${SHOWN_IN} does not show ${TEXT} as it is")
endif()
