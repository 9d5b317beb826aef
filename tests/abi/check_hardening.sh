#!/bin/sh
# check_hardening.sh LIBRARY: whether the built library carries what it is hardened with.
set -eu
library=$1
failed=0
# expect TEXT COMMAND...: the command succeeds.
expect() {
  what=$1
  shift
  if "$@"; then
    echo "ok      $what"
  else
    echo "MISSING $what"
    failed=1
  fi
}
segments=$(readelf -lW "$library")
dynamic=$(readelf -dW "$library")
imports=$(nm -D --undefined-only "$library")
has() { echo "$1" | grep -q "$2"; }
lacks() { ! has "$1" "$2"; }
expect "read-only relocations" has "$segments" GNU_RELRO
expect "all symbols bound at start" has "$dynamic" BIND_NOW
expect "no executable stack" has "$segments" 'GNU_STACK .* RW '
expect "no segment both writable and executable" lacks "$segments" ' RWE '
expect "no relocations in the text" lacks "$dynamic" TEXTREL
expect "no search path" lacks "$dynamic" 'RPATH\|RUNPATH'
expect "stack protection" has "$imports" __stack_chk_fail
expect "checked string functions" has "$imports" '_chk\(@\|$\)'
exit $failed
