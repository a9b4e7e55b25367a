#!/usr/bin/env bash
# Installs the Debian 12 packages the build, the tests and the program need, if any is missing.
set -euo pipefail
packages=(cmake ninja-build g++ qt6-base-dev libgl1-mesa-dev fonts-dejavu-core xvfb xauth)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
fi
