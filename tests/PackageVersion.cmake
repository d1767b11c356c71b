# Which versions find_package(PropWidgets <version>) takes from an installed package.
# The version file is SameMajorVersion: the installed major, at least as new as asked,
# is taken; any other major is refused, older (0.9 from 1.x) as well as newer.
# cmake -DVERSION=<x.y.z> -DWORK=<scratch dir> [-DBUILD=<build dir>] -P PackageVersion.cmake
#   With BUILD the build is installed into WORK/prefix and found there; without it,
#   the package is found where a host finds it with no hint (/usr after apt-get install).
file(REMOVE_RECURSE "${WORK}")
set(hint)
if(BUILD)
  execute_process(COMMAND ${CMAKE_COMMAND} --install "${BUILD}" --prefix "${WORK}/prefix"
    RESULT_VARIABLE failed OUTPUT_QUIET ERROR_VARIABLE out)
  if(failed)
    message(FATAL_ERROR "install into ${WORK}/prefix failed: ${out}")
  endif()
  set(hint "-DCMAKE_PREFIX_PATH=${WORK}/prefix")
endif()
file(WRITE "${WORK}/host/CMakeLists.txt" "cmake_minimum_required(VERSION 3.16)
project(VersionedHost LANGUAGES CXX)
find_package(PropWidgets \${WANT} REQUIRED)
message(STATUS \"found PropWidgets \${PropWidgets_VERSION} in \${PropWidgets_DIR}\")
")

string(REPLACE "." ";" parts "${VERSION}")
list(GET parts 0 major)
list(GET parts 1 minor)
math(EXPR next "${major} + 1")
set(takes "${major}.${minor}")
set(refuses "${next}.0")
if(major GREATER 0)
  math(EXPR previous "${major} - 1")
  list(APPEND refuses "${previous}.9")
endif()

foreach(want ${takes} ${refuses})
  execute_process(COMMAND ${CMAKE_COMMAND} -S "${WORK}/host" -B "${WORK}/host-${want}" -DWANT=${want} ${hint}
    RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(want STREQUAL takes)
    if(failed)
      message(FATAL_ERROR "find_package(PropWidgets ${want}) refused ${VERSION}:\n${out}")
    endif()
    string(REGEX MATCH "found PropWidgets [^\n]*" found "${out}")
    message(STATUS "${want}: ${found}")
  elseif(NOT failed)
    message(FATAL_ERROR "find_package(PropWidgets ${want}) took ${VERSION}:\n${out}")
  elseif(NOT out MATCHES "requested version \"${want}\".*version: ${VERSION}")
    message(FATAL_ERROR "find_package(PropWidgets ${want}) failed, but not for the version:\n${out}")
  else()
    string(REGEX MATCH "Could not find a configuration file[^\n]*\n[^\n]*" why "${out}")
    string(REGEX MATCH "[^\n]*version: ${VERSION}" seen "${out}")
    string(REGEX REPLACE "[ \n]+" " " why "${why}")
    string(STRIP "${seen}" seen)
    message(STATUS "${want}: refused: ${why} Considered: ${seen}")
  endif()
endforeach()
