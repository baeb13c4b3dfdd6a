#!/usr/bin/env bash
# check_symbols.sh LIBRARY: a shared library of this project exports the names of its four
# namespaces, their vtables and type information, and nothing else (no instantiation of std::).
set -euo pipefail
library=${1:?usage: check_symbols.sh LIBRARY}

namespaces='(12QVCommon_940|13QVDisplay_940|10QVMath_940|9QVXML_940)'
# A vtable, VTT, type information or its name, a guard, a thunk; then the nested name.
own="^_Z(T[VTIS]|GV|Th[n0-9]+_|Tv[n0-9]+_[n0-9]+_)?N[KVRO]*$namespaces"

exported=$(nm --dynamic --defined-only --format=posix "$library" | awk '$2 != "A" { print $1 }' |
           sed 's/@.*//')
[ -n "$exported" ] || { echo "$library exports nothing"; exit 1; }
foreign=$(printf '%s\n' "$exported" | grep -vE "$own" || true)
if [ -n "$foreign" ]; then
  echo "$library exports names outside its namespaces:"
  printf '%s\n' "$foreign" | c++filt
  exit 1
fi
echo "$(printf '%s\n' "$exported" | wc -l) exported names, all of the four namespaces"
