#!/bin/sh
# check_interface.sh LIBRARY HEADERS [--update]: compares what the library offers to C programs, its functions with their
# arguments and the layout of their records, with the baseline. What is new is allowed. --update makes the baseline anew,
# for a change that is meant.
set -eu
library=$(realpath "$1")
headers=$2
here=$(dirname "$0")
if [ "${3:-}" = --update ]; then
  exec abidw --exported-interfaces-only --suppressions "$here/suppressions.ini" --headers-dir "$headers" \
    --drop-private-types --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names \
    --type-id-style hash --out-file "$here/libzqxml.abi" "$library"
fi
abidiff --suppressions "$here/suppressions.ini" --leaf-changes-only \
  --exported-interfaces-only --no-added-syms "$here/libzqxml.abi" "$library"
echo "the interface is that of the baseline"
