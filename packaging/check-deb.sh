#!/bin/bash
# Installs a built package into a Debian 12 root made by
#   debootstrap bookworm ROOT http://deb.debian.org/debian
# starts the program there for ten seconds under Xvfb as an ordinary user and screenshots it
# from this host (needs ImageMagick's import here). Run as root; not for CI.
# Usage: packaging/check-deb.sh ROOT build/tolvisk_VERSION_ARCH.deb SHOT.png [DISPLAY_NUMBER]
set -euo pipefail
root=$1 deb=$2 shot=$3 display=${4:-99}
cp /etc/resolv.conf "$root/etc/resolv.conf"
cp "$deb" "$root/tmp/"
mount -t proc proc "$root/proc"
mount --bind /dev "$root/dev"
trap 'umount --lazy "$root/dev" "$root/proc"' EXIT
chroot "$root" bash -c "apt-get update -q && DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q /tmp/$(basename "$deb") xvfb xauth desktop-file-utils"
chroot "$root" desktop-file-validate /usr/share/applications/tolvisk.desktop
chroot "$root" bash -c 'id tester >/dev/null 2>&1 || useradd -m tester'
chroot "$root" su tester -c "xvfb-run -n $display -s '-screen 0 1024x768x24' \
    timeout 10 tolvisk /usr/share/tolvisk/samples/classics.pgn" &
sleep 5
# Xvfb's abstract socket is shared with the host, so the host's import reaches it.
DISPLAY=:$display XAUTHORITY=$(ls -d "$root"/tmp/xvfb-run.*/ | tail -1)Xauthority \
    import -window root "$shot"
wait || true # timeout ends the program
echo "screenshot: $shot"
