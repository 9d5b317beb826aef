#!/bin/sh
# run.sh BUILD_DIR WORK_DIR CC CXX FLAGS DOCUMENT EXPECTED: installs the build, and builds programs outside the tree
# against what was installed, in C and C++, by CMake and by pkg-config. FLAGS are those of the build.
set -eu
build=$1 work=$2 cc=$3 cxx=$4 flags=$5 document=$6 expected=$7
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work"
mkdir -p "$work"
prefix=$work/usr

DESTDIR='' cmake --install "$build" --prefix "$prefix" >"$work/install.log"
libdir=$(dirname "$(find "$prefix" -name zqxml.pc)")/..
libdir=$(cd "$libdir" && pwd)

# What has to be there, the catalog below the folders that catopen searches by itself.
for file in share/locale/C/LC_MESSAGES/zqsystem.cat share/locale/en/LC_MESSAGES/zqsystem.cat \
  include/zqxml/zqxml.h include/zqxml/builders.hpp include/zqxml/messages.h bin/zqxml; do
  test -f "$prefix/$file" || { echo "not installed: $file"; exit 1; }
done
test "$(basename "$(readlink -f "$libdir/libzqxml.so")")" = "$(basename "$(readlink -f "$libdir/libzqxml.so.1")")"
find "$prefix/include" -type f | grep -v '/zqxml/[a-z0-9_]*\.hp*$' && { echo "a private header was installed"; exit 1; }

# The tool finds its library, and what only the static library needs isn't asked for.
test "$(env -u LD_LIBRARY_PATH "$prefix/bin/zqxml" --version)" = "zqxml 1.0.0"
cp "$libdir/pkgconfig/zqxml.pc" "$work"
PKG_CONFIG_LIBDIR=$work pkg-config --cflags --libs zqxml >/dev/null || { echo "zqxml.pc asks for other packages"; exit 1; }

export LD_LIBRARY_PATH="$libdir"
check() {
  "$1" "$document" >"$work/output"
  diff -u "$2" "$work/output" || { echo "wrong output of $1"; exit 1; }
}

cmake -S "$here/cmake" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER="$cc" \
  -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" >"$work/configure.log" 2>&1 ||
  { cat "$work/configure.log"; exit 1; }
cmake --build "$work/cmake" >"$work/build.log" 2>&1 || { cat "$work/build.log"; exit 1; }
for program in consumer_c consumer_cpp consumer_static_c consumer_static_cpp; do
  check "$work/cmake/$program" "$expected"
done
for program in builders builders_static; do
  check "$work/cmake/$program" "$here/builders.expected"
done

# The runtime of a sanitized C++ library comes with the C++ compiler.
case $flags in
*-fsanitize*) ;;
*)
  cmake -S "$here/cmake-c" -B "$work/cmake-c" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER="$cc" \
    -DCMAKE_C_FLAGS="$flags" -DCMAKE_DISABLE_FIND_PACKAGE_XercesC=ON >"$work/configure-c.log" 2>&1 ||
    { cat "$work/configure-c.log"; exit 1; }
  cmake --build "$work/cmake-c" >"$work/build-c.log" 2>&1 || { cat "$work/build-c.log"; exit 1; }
  check "$work/cmake-c/consumer" "$expected"
  ;;
esac

export PKG_CONFIG_PATH="$libdir/pkgconfig"
test "$(pkg-config --modversion zqxml)" = 1.0.0
case $flags in
*-fsanitize*) c_linker=$cxx ;;
*) c_linker=$cc ;;
esac
$cc $flags -std=c11 -Wall -Wextra -pedantic -Werror -c "$here/consumer.c" -o "$work/pc_c.o" $(pkg-config --cflags zqxml)
$c_linker $flags "$work/pc_c.o" -o "$work/pc_c" $(pkg-config --libs zqxml)
$cxx $flags -std=c++20 -Wall -Wextra -pedantic -Werror "$here/consumer.cpp" -o "$work/pc_cpp" \
  $(pkg-config --cflags --libs zqxml)
$cxx $flags -std=c++20 -Wall -Wextra -pedantic -Werror "$here/builders.cpp" -o "$work/pc_builders" \
  $(pkg-config --cflags --libs zqxml xerces-c)
check "$work/pc_c" "$expected"
check "$work/pc_cpp" "$expected"
check "$work/pc_builders" "$here/builders.expected"
echo "The programs built against the installed files give what is expected"
