#!/usr/bin/env bash
# Installs the Debian packages the build, the sandbox and the tests need, when missing:
# both Qt 5 (Maya 2022-2024) and Qt 6 (Maya 2025 and later), which the tests run on.
set -euo pipefail
# clang and its runtimes build the fuzz targets (tools/fuzz.sh).
packages=(build-essential cmake python3-dev zlib1g-dev xvfb xauth fonts-wine
    qtbase5-dev qtbase5-dev-tools
    qt6-base-dev qt6-base-dev-tools qt6-5compat-dev
    clang libclang-rt-14-dev)
missing=()
for p in "${packages[@]}"; do
    dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -q
$sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
