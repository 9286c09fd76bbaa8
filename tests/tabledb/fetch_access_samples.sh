#!/bin/sh
# Fetches two real Access files for the import tests into $1 (once; later runs reuse them):
#   node-adodb.mdb  - example database of the npm package node-adodb 5.0.3 (MIT)
#   Monitor.mdb     - example of the Debian package mrtg-contrib
# When a source is unreachable, "<name>.unavailable" records why and the tests skip; a source
# that answers but does not hold the file is an error.
set -u
out=$1
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

if [ ! -s "$out/node-adodb.mdb" ]; then
  if ! command -v npm >/dev/null 2>&1; then
    echo "npm is not installed" > "$out/node-adodb.mdb.unavailable"
  elif (cd "$work" && timeout 120 npm pack node-adodb@5.0.3 >"$work/npm.log" 2>&1); then
    if tar -xzf "$work/node-adodb-5.0.3.tgz" -C "$work" package/examples/node-adodb.mdb; then
      cp "$work/package/examples/node-adodb.mdb" "$out/node-adodb.mdb.part" &&
        mv "$out/node-adodb.mdb.part" "$out/node-adodb.mdb" && rm -f "$out/node-adodb.mdb.unavailable"
    else
      echo "node-adodb 5.0.3 was fetched but holds no examples/node-adodb.mdb" >&2
      status=1
    fi
  else
    { echo "npm pack node-adodb@5.0.3 failed:"; tail -5 "$work/npm.log"; } > "$out/node-adodb.mdb.unavailable"
  fi
fi

if [ ! -s "$out/Monitor.mdb" ]; then
  if ! command -v apt-get >/dev/null 2>&1; then
    echo "apt-get is not available" > "$out/Monitor.mdb.unavailable"
  elif (cd "$work" && timeout 120 apt-get download mrtg-contrib >"$work/apt.log" 2>&1); then
    dpkg-deb -x "$work"/mrtg-contrib_*.deb "$work/deb"
    mdb=$(find "$work/deb" -name Monitor.mdb | head -n 1)
    if [ -n "$mdb" ]; then
      cp "$mdb" "$out/Monitor.mdb.part" && mv "$out/Monitor.mdb.part" "$out/Monitor.mdb" &&
        rm -f "$out/Monitor.mdb.unavailable"
    else
      echo "mrtg-contrib was fetched but holds no Monitor.mdb" >&2
      status=1
    fi
  else
    { echo "apt-get download mrtg-contrib failed:"; tail -5 "$work/apt.log"; } > "$out/Monitor.mdb.unavailable"
  fi
fi
exit $status
