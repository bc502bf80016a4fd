# Installs the build into a prefix of its own, from scratch, so that nothing of an earlier
# installation can hide what is missing in this one.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(
    COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
    COMMAND_ERROR_IS_FATAL ANY)
