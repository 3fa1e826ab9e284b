#!/bin/sh
# Installs the Debian packages named as arguments that this machine does not have yet.
set -eu
missing=""
for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0
as_root=""
[ "$(id -u)" -eq 0 ] || as_root="sudo"
echo "Installing:$missing"
$as_root apt-get update -qq
# shellcheck disable=SC2086
DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
