# SPDX-License-Identifier: MIT
set(build "${WORK}/pkgconfig")
file(REMOVE_RECURSE "${build}")
file(MAKE_DIRECTORY "${build}")
set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIBDIR}/pkgconfig")
set(ENV{LD_LIBRARY_PATH} "${PREFIX}/${LIBDIR}")
set(ENV{CXX} "${COMPILER} ${FLAGS}")
execute_process(
    COMMAND sh -ec "$CXX -std=c++17 \"$1\" -o consumer $(pkg-config --cflags --libs kxmfcwrapper)" sh "${SOURCE}/main.cpp"
    WORKING_DIRECTORY "${build}" COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${build}/consumer" COMMAND_ERROR_IS_FATAL ANY)
