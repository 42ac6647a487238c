#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the packages that are missing of packages.txt and of further lists:  install_packages.sh [LIST]...
# Asks sudo when not root; on a system without apt it lists what is needed and fails.
set -euo pipefail

lists=("$(dirname "${BASH_SOURCE[0]}")/packages.txt" "$@")
mapfile -t packages < <(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "${lists[@]}")

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    # Somebody may have installed everything by hand under other names; that is theirs to say.
    if [ -n "${TARNVIK_SKIP_PACKAGES:-}" ]; then
        exit 0
    fi
    {
        echo "This system has no apt. Please install what these Debian packages hold:"
        printf '  %s\n' "${packages[@]}"
        echo "and set TARNVIK_SKIP_PACKAGES=1."
    } >&2
    exit 1
fi

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing=()
for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "Please install these packages as root: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing ${missing[*]}"
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
# The tests start servers of their own, on free ports: what comes with a package is not to be started, unless the
# machine has a rule of its own. The rule of this script goes with it, whatever happens.
# shellcheck disable=SC2016
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c '
    rule=/usr/sbin/policy-rc.d
    if [ ! -e "$rule" ]; then
        trap "rm -f $rule" EXIT
        trap "exit 1" HUP INT TERM
        printf "#!/bin/sh\nexit 101\n" >"$rule"
        chmod 755 "$rule"
    fi
    apt-get install -y -q --no-install-recommends "$@"' install "${missing[@]}"
