# SPDX-License-Identifier: MIT
# The plots that come with the sample host are what its generator writes.
# Run with -DPYTHON=<interpreter> -DPLOTS=<folder of the plots> -DFOLDER=<scratch folder> -P.
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")
execute_process(COMMAND "${PYTHON}" "${PLOTS}/make_plots.py" "${FOLDER}" COMMAND_ERROR_IS_FATAL ANY)
file(GLOB plots RELATIVE "${PLOTS}" "${PLOTS}/*.hpgl")
list(LENGTH plots count)
if(NOT count EQUAL 3)
    message(FATAL_ERROR "${count} plots instead of 3")
endif()
foreach(plot IN LISTS plots)
    execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${PLOTS}/${plot}" "${FOLDER}/${plot}"
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
