# A Debian 12 with nothing but the base system, in a folder; sourced by scripts that try something
# where nothing has been installed. Sets `root`, which is removed when the script ends, and offers
#
#   step TEXT...       says what comes next, and the seconds so far
#   inside COMMAND...  runs a command in it as root, with an empty environment (so LANG is not set)
#
# MIRROR is the mirror to take it from (default: the one that apt uses here); TMPDIR says where it goes.
# shellcheck shell=bash

if [ "$(id -u)" -ne 0 ] || ! command -v debootstrap > /dev/null; then
  echo "This needs to be root, and the Debian package debootstrap." >&2
  exit 1
fi
# shellcheck disable=SC2016  # apt's own variable
mirror=${MIRROR:-$(apt-get indextargets --format '$(SITE)' 'Codename: bookworm' 'Created-By: Packages' | head -n 1)}
root=$(mktemp --directory --tmpdir postwright-root.XXXXXX)

remove_root() {
  umount "$root/proc" "$root/dev/pts" 2> /dev/null || true
  rm --recursive --force --one-file-system "$root"
}
trap remove_root EXIT

step() { printf '\n%4d s  %s\n' "$SECONDS" "$*"; }

inside() { chroot "$root" env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/try "$@"; }

step "A bare system"
debootstrap --variant=minbase bookworm "$root" "$mirror" > "$root.log" || { tail "$root.log"; exit 1; }
rm "$root.log"
mount -t proc proc "$root/proc"
mount -t devpts devpts "$root/dev/pts"
echo "127.0.0.1 localhost" > "$root/etc/hosts"  # as an installer would
mkdir "$root/try"
