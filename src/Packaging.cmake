# Debian packages of the install components (cpack -G DEB, see scripts/package.sh):
# libpropwidgets<major> holds the run-time libraries, libpropwidgets-dev what a host
# builds with.
set(CPACK_PACKAGE_NAME libpropwidgets)
set(CPACK_PACKAGE_VENDOR "libPropWidgets team")
set(CPACK_PACKAGE_CONTACT "libPropWidgets team <team@propwidgets.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development)
# Paths in the package are those of the configured build, so the multiarch lib dir
# comes only from a tree configured with CMAKE_INSTALL_PREFIX=/usr.
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The debugging information stays in the build tree; a package carries the code.
set(CPACK_STRIP_FILES ON)

# Each package's first line is its summary; the paragraph after is shared.
set(prop_about "libPropWidgets turns the items of a host's property bag into Qt widgets:
editor controls chosen by GUID through a registry, and the item-view pieces
a host builds property grids from. It is loaded as a run-time module.")

# The run-time package is named by the SOVERSION, so two majors install side by side.
set(prop_runtime_package libpropwidgets${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${prop_runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# A package built against 1.x runs on any later 1.x: the major is the compatibility promise.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "Property editors for CAD hosts, as a Qt ${PROPWIDGETS_QT_MAJOR} library (run-time)
${prop_about}

This package holds the shared libraries PropWidgets, PropHost (the reference
host) and OdPlatform (the platform run-time).")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libpropwidgets-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
# The headers and the CMake package describe exactly one build of the libraries,
# so the run-time package of the same version (=); the rest is what
# PropWidgetsConfig.cmake looks for with find_dependency.
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# The Qt development package of the major the libraries were built with.
if(PROPWIDGETS_QT_MAJOR EQUAL 6)
  set(prop_qt_dev "qt6-base-dev (>= 6.4)")
else()
  set(prop_qt_dev "qtbase5-dev (>= 5.15)")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${prop_qt_dev}, libmuparser-dev (>= 2.3)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "Property editors for CAD hosts, as a Qt ${PROPWIDGETS_QT_MAJOR} library (development)
${prop_about}

This package holds the headers, the libraries' link names and the CMake
package: find_package(PropWidgets ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} REQUIRED).")
include(CPack)
