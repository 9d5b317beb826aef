# Shared by the scripts: the root of the tree, and the installation of what is missing. Source it, don't run it.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# need PACKAGE...: installs the Debian packages that are missing.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -qy --no-install-recommends "${missing[@]}"
}

need_for_build() {
  need g++ cmake ninja-build ccache libxerces-c-dev libcli11-dev nlohmann-json3-dev
}

need_clang() {
  need clang clang-14 libclang-rt-14-dev
}

need_for_tests() {
  need_for_build
  need libgtest-dev libgmock-dev python3 pkg-config locales doxygen binutils file zlib1g-dev abigail-tools
}

# build PRESET [TARGET...]: configures and builds, all or the targets.
build() {
  local log=build/$1.configure.log
  mkdir -p build
  cmake --preset "$1" >"$log" 2>&1 || { cat "$log"; return 1; }
  cmake --build --preset "$1" ${2:+--target "${@:2}"}
}
