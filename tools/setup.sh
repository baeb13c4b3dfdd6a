# Sourced by ./check, ./demo, bench/run and .ci/run: puts on a Debian 12 machine what they need.
#
#     . tools/setup.sh
#     need build tests        # the names of lists below
#
# Only what is missing is installed; nothing is asked. Where apt is not to be had, the missing
# packages are named and the caller goes on with whatever the machine offers.

packages_build="g++ cmake ninja-build"
packages_example="libcli11-dev libcsv-dev"
packages_tests="libgmock-dev libgtest-dev liblapack-dev libxml2-utils locales python3"
packages_bench="libarmadillo-dev libbenchmark-dev libboost-math-dev libeigen3-dev libgsl-dev
                liblapacke-dev libopenblas-dev libpugixml-dev python3 r-mathlib"
packages_ci="clang-14 clang-format-14 doxygen git pkg-config"

need() {
  local list name wanted="" missing="" as_root=""
  for list in "$@"; do
    name="packages_$list"
    wanted="$wanted ${!name}"
  done
  for name in $wanted; do
    case "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" in
      installed) ;;
      *) missing="$missing $name" ;;
    esac
  done
  [ -n "$missing" ] || return 0

  if ! command -v apt-get >/dev/null; then
    echo "This machine has no apt-get. These Debian packages, or their like, are needed:$missing" >&2
    return 0
  fi
  if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Missing packages, and neither root nor sudo to install them:$missing" >&2
      return 1
    fi
    as_root=sudo
  fi
  echo "Installing with apt-get:$missing"
  $as_root apt-get update -qq </dev/null &&
    $as_root env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq -o Dpkg::Use-Pty=0 --no-install-recommends $missing </dev/null >/dev/null
}

# ccache makes repeated builds quick where it happens to be there; nothing depends on it.
if command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER="${CMAKE_CXX_COMPILER_LAUNCHER-ccache}"
fi
