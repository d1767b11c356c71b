# The README's host code is the example that CI builds: they must not drift apart.
# cmake -DREADME=<README.md> -DEXAMPLE=<main.cpp> -P ReadmeHostCode.cmake
file(READ "${README}" readme)
file(READ "${EXAMPLE}" example)
string(FIND "${readme}" "${example}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "README.md does not show ${EXAMPLE} as it stands")
endif()
