#!/usr/bin/env bash
# Makes the Debian packages from build/ (set up first when there is none): the run-time
# package libpropwidgets<major> and libpropwidgets-dev, into build/packages/, and prints
# their paths. Install them with apt-get install ./build/packages/<name>.deb.
set -euo pipefail
cd "$(dirname "$0")/.."
# dpkg-shlibdeps finds the run-time package's Depends; cpack reads the libraries with file and readelf.
./scripts/install-packages.sh dpkg-dev file binutils
[ -f build/CMakeCache.txt ] || ./scripts/setup.sh
# The packages install under /usr: the tree must be configured for it to have Debian's lib dir.
cmake -S . -B build -DCMAKE_INSTALL_PREFIX=/usr > /dev/null
libdir=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:[A-Z]*=//p' build/CMakeCache.txt)
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
if [ "$libdir" != "lib/$multiarch" ]; then
  echo "package.sh: build/ installs its libraries into $libdir, not lib/$multiarch" >&2
  exit 1
fi
cmake --build build -j "$(nproc)"
rm -rf build/packages
mkdir -p build/packages
if ! (cd build && cpack -G DEB -B "$PWD/packages") > build/packages/cpack.log 2>&1; then
  cat build/packages/cpack.log >&2
  exit 1
fi
ls "$PWD"/build/packages/*.deb
