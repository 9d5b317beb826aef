#!/bin/sh
# check_exports.sh LIBRARY LISTS: compares the names that the library exports with the lists, a file per family. Names of
# C++ are listed in their readable form.
set -eu
library=$1
lists=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C
nm -D --defined-only "$library" | awk '$2 != "A" {sub(/@.*/, "", $3); print $3}' | c++filt | sort -u >"$work/exported"
cat "$lists"/*.txt | sort >"$work/listed"
diff -u --label listed --label exported "$work/listed" "$work/exported"
echo "$(wc -l <"$work/exported") exported names, as listed"
readelf -d "$library" | grep -q 'SONAME.*\[libzqxml\.so\.1\]'
readelf --version-info "$library" | grep -q 'LIBZQXML_1\.0'
