# SPDX-License-Identifier: MIT
set(build "${WORK}/cmake")
file(REMOVE_RECURSE "${build}")
execute_process(COMMAND "${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}" -B "${build}"
        "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS}" "-DCMAKE_PREFIX_PATH=${PREFIX}"
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${build}" COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${build}/consumer" COMMAND_ERROR_IS_FATAL ANY)
