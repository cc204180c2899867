#!/usr/bin/env bash
# The names that a DLL exports, compared with a list that is checked in, so that nothing leaves a DLL, and no name that clients
# link against disappears, without being seen in a change.
#
#   exports.sh check <dll> <list>   answers 1 and shows what is new and what is gone
#   exports.sh renew <dll> <list>   writes the list anew (./build.sh --exports does it for both DLLs)
#
# A list is sorted by bytes, one name in a line as the linker knows it. Names of the standard library's templates never belong in
# one: a client's own compiler makes those.
set -u
export LC_ALL=C
tool() { "x86_64-w64-mingw32-$1" "${@:2}"; }

# Later versions of objdump put a line of titles above the names.
names() {
  tool objdump -p "$1" | awk '/^\[Ordinal\/Name Pointer\] Table/ { inside = 1; next }
    /^[ \t]*$/ { inside = 0 }
    inside && /\]/ { print $NF }' | sort
}

# Each line with the name as it stands in a header.
readable() { paste <(cat "$1") <(sed 's/^[+-] //' "$1" | tool c++filt | sed 's/std::__cxx11::basic_string<[^<>]*<char>[^<>]*<char> >/std::string/g') |
  awk -F '\t' '{ print "  " $1; if (substr($1, 3) != $2) print "      " $2 }'; }

found=$(mktemp) || exit 2
difference=$(mktemp) || exit 2
trap 'rm -f "$found" "$difference"' EXIT
names "$2" >"$found"
[ -s "$found" ] || { echo "$2 exports nothing"; exit 1; }
if grep -E '^_ZN?K?(St|S[absiod]|T[ISV]N?K?S|9__gnu_cxx|GVZ?N?St)' "$found"; then
  echo "$2 exports names of the standard library"
  exit 1
fi

case "$1" in
  check)
    diff <(sort "$3") "$found" | sed -n 's/^> /+ /p; s/^< /- /p' >"$difference"
    [ -s "$difference" ] || exit 0
    echo "$2 does not export what $3 says: + is new, - is gone. When that is meant: ./build.sh --exports"
    readable "$difference"
    exit 1
    ;;
  renew) cp "$found" "$3" ;;
  *) exit 2 ;;
esac
