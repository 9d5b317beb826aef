#!/bin/sh
# check_system_calls.sh LIBRARY: holds the functions that the library calls for files, descriptors and catalogs against
# those that FaultySystem makes fail, directly or by the streams of the C library. A new one needs a place there, and
# scenarios.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C
cat >"$work/known" <<'NAMES'
catclose
catgets
catopen
close
fclose
ferror
fgetc
fgets
fopen
fputs
fread
fseek
fstat
fwrite
lseek
open
read
stat
write
NAMES
nm -D --undefined-only "$1" | awk '{sub(/@.*/, "", $2); print $2}' | sed -E 's/^__(.*)_(chk|2)$/\1/' |
  grep -xE '(cat|f|p)?(open|close|read|write|seek|seeko|tell|tello|get[cs]|put[cs]|printf|scanf|flush|error|truncate)(v|at)?(64)?|open(at|dir)|l?seek(64)?|f?l?stat(at|x)?(64)?|ungetc|setv?buf|tmpfile|mkstemp|unlink|rename|remove|dup[23]?|pipe2?|mmap(64)?|poll|select|fcntl(64)?|ioctl|fsync|freopen|fdopen|getline|vd?printf|vfprintf|dprintf|socket|send(to|msg)?|recv(from|msg)?' |
  sort -u >"$work/called"
diff -u --label known --label called "$work/known" "$work/called"
echo "$(wc -l <"$work/called") functions, as known"
