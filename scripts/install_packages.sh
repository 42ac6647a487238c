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
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
