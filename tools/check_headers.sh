#!/usr/bin/env bash
# Compiles each public header alone (twice in a row, so that its guard is tried as well), as C++17
# and as C++20, with every warning an error. Arguments: compilers; g++ and clang++-14 by default.
set -euo pipefail
cd "$(dirname "$0")/.."
compilers=("$@")
[ $# -gt 0 ] || compilers=(g++ clang++-14)

compile_alone() {
  printf '#include <%s>\n#include <%s>\n' "$3" "$3" |
    "$1" -std="$2" -x c++ - -fsyntax-only -Iinclude \
      -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror ||
    { echo "$3 does not compile alone with $1 -std=$2"; return 1; }
}
export -f compile_alone

for compiler in "${compilers[@]}"; do
  for standard in c++17 c++20; do
    for header in $(cd include && ls); do
      printf '%s %s %s\n' "$compiler" "$standard" "$header"
    done
  done
done | xargs -P "$(nproc)" -L 1 bash -c 'compile_alone "$@"' _
echo "$(ls include | wc -l) headers compile alone with ${compilers[*]} as C++17 and C++20"
