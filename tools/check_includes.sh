#!/usr/bin/env bash
# What the sources may include:
#   - include/qvcommon pulls in every public header, in alphabetical order;
#   - a public header names nothing from inside the library;
#   - a lower layer names no internal header of a higher one (docs/architecture.md).
set -euo pipefail
cd "$(dirname "$0")/.."
status=0
fault() { echo "$1"; status=1; }

listed=$(sed -n 's/^#include "\(.*\)"$/\1/p' include/qvcommon)
present=$(cd include && ls -- *.h | LC_ALL=C sort)
if [ "$listed" != "$present" ]; then
  fault "include/qvcommon and the headers of include/ differ (< listed, > present, C order):"
  diff <(printf '%s\n' "$listed") <(printf '%s\n' "$present") || true
fi

# forbid FOLDER PATTERN: no file of the folder includes a quoted path that begins so.
forbid() {
  local hits
  hits=$(grep -rnE "^ *#include \"($2)" --include='*.h' --include='*.cpp' --include=qvcommon "$1" || true)
  [ -z "$hits" ] || fault "$1 must not include $2:"$'\n'"$hits"
}
forbid include '[^"]*/'
forbid common 'math/|xml/'
forbid math/kernels 'math/(function|matrix|distribution|random|accumulator)/|xml/'
forbid math/function 'math/(matrix|distribution|random|accumulator)/|xml/'
forbid math/matrix 'math/(distribution|random|accumulator)/|xml/'
forbid math/distribution 'math/(matrix|random|accumulator)/|xml/'
forbid math/random 'math/accumulator/|xml/(text|variable|settings|chart|export)/'
forbid math/accumulator 'math/random/|xml/(text|persist|variable|settings|export)/'
exit $status
