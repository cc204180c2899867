#!/usr/bin/env bash
# Runs a command of the project, ./test.sh when none is given, in a bare Debian system: what is not in the project's own lists of
# packages is not there. For whoever is root; needs debootstrap and the network.
#
#   cmake/bare-system.sh bookworm|trixie [command...]
#
# The system is made anew each time below build/bare/, or below DLGLIB_BARE; what debootstrap has made is kept for the next run.
# The command sees a clone of what is committed, in /home/dlglib.
set -euo pipefail
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$project/cmake/steps.sh"
steps=3
mirror=${DLGLIB_MIRROR:-http://deb.debian.org/debian}

give_up() { echo "$1" >&2; exit 1; }

case "${1:-}" in
  bookworm | trixie) release=$1 ;;
  *) sed -n '2,8s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac
shift
[ $# != 0 ] || set -- ./test.sh
[ "$(id -u)" = 0 ] || give_up "Only root can make a system: run this as root"
command -v debootstrap >/dev/null || give_up "debootstrap is missing: apt-get install debootstrap"

folder=${DLGLIB_BARE:-$project/build/bare}
base=$folder/$release-base
system=$folder/$release
mkdir -p "$folder"
say "a bare $release in $base, kept from run to run"
if [ ! -f "$base/etc/debian_version" ]; then
  rm -rf "$base.new"
  debootstrap --variant=minbase "$release" "$base.new" "$mirror" >"$folder/$release.log" 2>&1 ||
    give_up "No bare $release could be made: see $folder/$release.log"
  mv "$base.new" "$base"
fi
say "a clone of the project in a copy of it, $system"
rm -rf "$system"
cp --archive "$base" "$system"
cp /etc/resolv.conf "$system/etc/"
git clone --quiet "$project" "$system/home/dlglib"

say "running $* there"
code=0
# Mounts and processes end with the command.
# shellcheck disable=SC2016  # expanded by the inner shell
unshare --mount --pid --fork --kill-child bash -c '
  set -e
  mount -t proc proc "$1/proc"
  mount --rbind /dev "$1/dev"
  system=$1
  shift
  exec chroot "$system" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TERM="${TERM:-dumb}" \
    ${http_proxy:+http_proxy="$http_proxy"} bash -c "cd /home/dlglib && exec \"\$@\"" bash "$@"
' bash "$system" "$@" || code=$?
say_next "what the command has left is in $system/home/dlglib; rm -rf $system removes the system" >&2
exit "$code"
