# shellcheck shell=bash disable=SC2034  # the lists are for those who source this
# Sourced by the scripts in the root: installs the Debian packages that are missing.
#
#   need_packages name...
#
# Does nothing, quickly, when all are there. Installs as root, or through sudo when that asks for no password; otherwise says
# what is missing and gives up. On a system without dpkg the caller's tools are taken as they are.

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

need_packages() {
  command -v dpkg-query >/dev/null || return 0
  local missing
  missing=$(_missing_packages "$@" | tr '\n' ' ')
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" != 0 ] && ! sudo --non-interactive true 2>/dev/null; then
    echo "Missing Debian packages, install them first: $missing" >&2
    return 1
  fi
  echo "Installing: $missing"
  # shellcheck disable=SC2086  # a list of names
  { _as_root apt-get update --quiet=2 &&
    _as_root env DEBIAN_FRONTEND=noninteractive apt-get install --quiet=2 --yes --no-install-recommends $missing; } \
    </dev/null >/dev/null
}

BUILD_PACKAGES=(cmake ninja-build g++ g++-mingw-w64-x86-64-posix googletest)
RUN_PACKAGES=(wine wine64 xvfb fonts-ipafont fonts-wine locales util-linux)
CHECK_PACKAGES=(clang-format doxygen python3)
TIDY_PACKAGES=(clang clang-tidy)
COVERAGE_PACKAGES=(clang-format gcovr)
MUTANTS_PACKAGES=(python3)
# What only `./test.sh --long` needs.
LONG_PACKAGES=(clang libclang-rt-dev llvm)
