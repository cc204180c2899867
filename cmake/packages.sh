# shellcheck shell=bash disable=SC2034  # the lists are for those who source this
# Sourced by the scripts in the root: installs the Debian packages that are missing.
#
#   need_packages name...
#
# Does nothing, quickly, when all are there. Installs as root, or through sudo when that asks for no password; otherwise says
# in one line what is missing and what to do, and answers 1. On a system without dpkg the tools must be there already.

_missing_packages() {
  local name
  for name in "$@"; do
    [ "$(dpkg-query --showformat='${db:Status-Status}' --show "$name" 2>/dev/null)" = installed ] || echo "$name"
  done
}

_as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  else
    sudo --non-interactive "$@"
  fi
}

# The tool by which a package is known where there are no packages; nothing for those that hold none.
_tool_of() {
  case $1 in
    ninja-build) echo ninja ;;
    g++-mingw-w64-x86-64-posix) echo x86_64-w64-mingw32-g++ ;;
    xvfb) echo Xvfb ;;
    x11-utils) echo xprop ;;
    locales) echo localedef ;;
    util-linux) echo flock ;;
    clang | clang-format | clang-tidy | cmake | doxygen | g++ | gcovr | git | python3 | uim-xim | wine | xdotool) echo "$1" ;;
  esac
}

# What a system without Debian's packages must have by itself; the versions are its owner's matter.
_need_tools() {
  local name tool missing=
  for name in "$@"; do
    tool=$(_tool_of "$name")
    [ -z "$tool" ] || command -v "$tool" >/dev/null || missing="$missing $tool"
  done
  [ -z "$missing" ] || { echo "Missing tools, install them first:$missing" >&2; return 1; }
}

need_packages() {
  command -v dpkg-query >/dev/null || { _need_tools "$@"; return; }
  local missing
  missing=$(_missing_packages "$@" | tr '\n' ' ')
  missing=${missing% }
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" != 0 ] && ! sudo --non-interactive true 2>/dev/null; then
    echo "Missing Debian packages and no right to install them; as root: apt-get install $missing" >&2
    return 1
  fi
  echo "Installing: $missing"
  # shellcheck disable=SC2086  # a list of names
  { _as_root apt-get update --quiet=2 -o APT::Update::Error-Mode=any &&
    _as_root env DEBIAN_FRONTEND=noninteractive apt-get install --quiet=2 --yes --no-install-recommends $missing; } \
    </dev/null >/dev/null 2>&1 && return
  echo "These packages could not be installed, is the network there? See what this says: apt-get install $missing" >&2
  return 1
}

PRODUCT_PACKAGES=(cmake ninja-build g++-mingw-w64-x86-64-posix)
BUILD_PACKAGES=("${PRODUCT_PACKAGES[@]}" g++ googletest)
RUN_PACKAGES=(wine wine64 xvfb fonts-ipafont fonts-wine locales util-linux x11-utils)
# Those who type Japanese, in tests only.
INPUT_METHOD_PACKAGES=(uim-anthy uim-xim xdotool)
CHECK_PACKAGES=(clang-format doxygen python3)
PACKAGE_PACKAGES=(doxygen llvm python3)
TIDY_PACKAGES=(clang clang-tidy)
COVERAGE_PACKAGES=(clang-format gcovr)
MUTANTS_PACKAGES=(python3)
# What only `./test.sh --long` needs.
LONG_PACKAGES=(clang libclang-rt-dev llvm)
