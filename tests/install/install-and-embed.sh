#!/usr/bin/env bash
# Installs the build into a fresh prefix, then configures, builds and runs the embedding
# example against that prefix alone.
set -euo pipefail
build=$1 example=$2 work=$3
rm -rf "$work"
cmake --install "$build" --prefix "$work/prefix" >/dev/null
test -x "$work/prefix/bin/torvane-settings"
test -f "$work/prefix/share/applications/torvane-settings.desktop"
test -f "$work/prefix/share/torvane/languages/Torvane_fr.qm"
cmake -S "$example" -B "$work/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/build" >/dev/null
"$work/build/embedding-example"
"$work/prefix/bin/torvane-settings" --version
