# Installs the build into a prefix of its own and compiles tests/installed-headers
# against it: a header that names an internal one, or uses Qt's bare keywords,
# fails here before a host finds out.
# cmake -DBUILD=<build dir> -DSOURCE=<tests/installed-headers> -DWORK=<scratch dir>
#       -DINCLUDEDIR=<include dir below the prefix> -DGENERATOR=<generator> -DCXX=<compiler> -P InstalledHeaders.cmake
file(REMOVE_RECURSE "${WORK}")
set(prefix "${WORK}/prefix")
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(failed)
    message(FATAL_ERROR "${out}")
  endif()
endfunction()
run(${CMAKE_COMMAND} --install "${BUILD}" --prefix "${prefix}")
run(${CMAKE_COMMAND} -S "${SOURCE}" -B "${WORK}/build" -G "${GENERATOR}" -DCMAKE_CXX_COMPILER=${CXX}
  "-DCMAKE_PREFIX_PATH=${prefix}" "-DPROP_INSTALLED_HEADERS=${prefix}/${INCLUDEDIR}/PropWidgets")
run(${CMAKE_COMMAND} --build "${WORK}/build")
