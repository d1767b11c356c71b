#!/usr/bin/env bash
# Makes the Debian packages (package.sh) and uses them as a host's machine does: installs
# both, builds every host under examples/ against /usr and starts it, checks which
# versions find_package takes, starts the hosts again with the run-time package alone,
# then purges both and checks that nothing of them is left. Needs root (or sudo).
# Leaves the machine without the packages, whether it passes or not.
set -euo pipefail
cd "$(dirname "$0")/.."
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
apt=(env DEBIAN_FRONTEND=noninteractive $SUDO apt-get -y -q -o DPkg::Lock::Timeout=300)
export QT_QPA_PLATFORM=offscreen
unset LD_LIBRARY_PATH
out=build/packages

step="making the packages"
names=()
fail() {
  echo "$*" >&2
  exit 1
}
state() { dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null || echo not-installed; }
cleanup() {
  local rc=$?
  if [ $rc -ne 0 ]; then
    echo "check-packages.sh: FAILED while $step" >&2
  fi
  for name in "${names[@]}"; do
    if [ "$(state "$name")" != not-installed ]; then
      "${apt[@]}" purge "$name" > /dev/null || true
    fi
  done
  exit $rc
}
trap cleanup EXIT

./scripts/package.sh
debs=("$out"/libpropwidgets*.deb)
[ ${#debs[@]} -eq 2 ] || fail "expected two packages, found: ${debs[*]}"
for deb in "${debs[@]}"; do
  names+=("$(dpkg-deb -f "$deb" Package)")
  case "$(dpkg-deb -f "$deb" Section)" in
    libdevel) dev=$deb ;;
    *) runtime=$deb ;;
  esac
done
version=$(dpkg-deb -f "$runtime" Version)
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)

step="reading the packages' contents"
lib=./usr/lib/$multiarch
for deb in "$runtime" "$dev"; do
  echo "$(basename "$deb"): $(stat -c %s "$deb") bytes, $(dpkg-deb -c "$deb" | grep -vc '^d') files and links"
  dpkg-deb -f "$deb" Depends | sed 's/^/  Depends: /'
done
dpkg-deb -c "$runtime" | awk '{print $6}' > "$out/runtime.list"
dpkg-deb -c "$dev" | awk '{print $6}' > "$out/dev.list"
for l in PropWidgets PropHost OdPlatform; do
  for f in "lib$l.so.$version" "lib$l.so.${version%%.*}"; do
    grep -qx "$lib/$f" "$out/runtime.list" || fail "$(basename "$runtime") has no $lib/$f"
  done
  grep -qx "$lib/lib$l.so" "$out/dev.list" || fail "$(basename "$dev") has no $lib/lib$l.so"
done
grep '/include/\|\.so$\|/cmake/' "$out/runtime.list" && fail "$(basename "$runtime") holds development files"
for f in cmake/PropWidgets/PropWidgetsConfig.cmake cmake/PropWidgets/PropWidgetsConfigVersion.cmake; do
  grep -qx "$lib/$f" "$out/dev.list" || fail "$(basename "$dev") has no $lib/$f"
done
grep -qx "./usr/include/PropWidgets/PropBag.h" "$out/dev.list" || fail "$(basename "$dev") has no headers"

step="installing the packages"
"${apt[@]}" install "$PWD/$runtime" "$PWD/$dev" > "$out/apt.log" 2>&1 || fail "$(cat "$out/apt.log")"
dpkg -L "${names[@]}" | sort -u > "$out/installed.list"

hosts=()
for example in examples/*/CMakeLists.txt; do
  hosts+=("$(basename "$(dirname "$example")")")
done
for host in "${hosts[@]}"; do
  step="building examples/$host against /usr"
  cmake -S "examples/$host" -B "$out/$host" -G Ninja > /dev/null
  grep -qx "PropWidgets_DIR:PATH=/usr/lib/$multiarch/cmake/PropWidgets" "$out/$host/CMakeCache.txt" ||
    fail "examples/$host found $(grep '^PropWidgets_DIR' "$out/$host/CMakeCache.txt"), not the package's"
  cmake --build "$out/$host" -j "$(nproc)" > /dev/null
  step="starting examples/$host"
  "$out/$host/$host" --check
  echo "examples/$host: built against /usr and started"
done

step="finding the package by version"
cmake "-DVERSION=$version" "-DWORK=$PWD/$out/version" -P tests/PackageVersion.cmake

# A host's machine has the run-time package alone: the module loader must find the
# library without the plain libPropWidgets.so of the development package.
step="removing the development package"
"${apt[@]}" remove "$(dpkg-deb -f "$dev" Package)" > "$out/apt.log" 2>&1 || fail "$(cat "$out/apt.log")"
for host in "${hosts[@]}"; do
  step="starting examples/$host with the run-time package alone"
  "$out/$host/$host" --check
  echo "examples/$host: started with the run-time package alone"
done

step="purging the packages"
installed=()
for name in "${names[@]}"; do
  [ "$(state "$name")" = not-installed ] || installed+=("$name")
done
"${apt[@]}" purge "${installed[@]}" > "$out/apt.log" 2>&1 || fail "$(cat "$out/apt.log")"
step="looking for what the packages left"
for name in "${names[@]}"; do
  [ "$(state "$name")" = not-installed ] || fail "$name is still known to dpkg as $(state "$name")"
done
left=0
while read -r path; do
  if [ -L "$path" ] || [ -f "$path" ] || { [ -d "$path" ] && [[ "$path" == *PropWidgets* ]]; }; then
    echo "left behind: $path" >&2
    left=1
  fi
done < "$out/installed.list"
[ $left -eq 0 ] || fail "the purge left files behind"
echo "purged: nothing of ${names[*]} is left ($(wc -l < "$out/installed.list") paths checked)"
