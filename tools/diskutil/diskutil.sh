#!/bin/sh
# diskutil mountDisk DRIVE | diskutil unmountDisk force DRIVE
# Mounts or unmounts the disc in a drive such as "sr0", by whatever this system has for it, and says what was done.
# A drive with nothing mounted, or with a disc that cannot be mounted (most audio discs), is no failure.
set -u

have() { command -v "$1" >/dev/null 2>&1; }

# mount_point DEVICE: where it is mounted; nothing for one that is not
mount_point() {
    while read -r device place _; do
        [ "$device" != "$1" ] || { printf '%b\n' "$place"; return; } # blanks stand there as \040
    done <"${DISKUTIL_MOUNTS:-/proc/self/mounts}"
}

is_mounted() { [ -n "$(mount_point "$1")" ]; }

unmount_disc() {
    is_mounted "$1" || { echo "$1 is not mounted"; return 0; }
    if have udisksctl; then
        udisksctl unmount --force --no-user-interaction -b "$1"
    elif have gio; then
        gio mount -u -f "$(mount_point "$1")" # with -d it would mount
    else
        umount "$1"
    fi && echo "Unmounted $1"
}

mount_disc() {
    ! is_mounted "$1" || { echo "$1 is mounted"; return 0; }
    if have udisksctl; then
        udisksctl mount --no-user-interaction -b "$1"
    elif have gio; then
        gio mount -d "$1"
    else
        mount "$1"
    fi && echo "Mounted $1" || echo "$1 was not mounted: there may be no files on its disc"
}

case "${1-} ${2-} ${3-}" in
"unmountDisk force "?*) unmount_disc "/dev/$3" ;;
"mountDisk "?*" ") mount_disc "/dev/$2" ;;
*)
    echo "usage: diskutil mountDisk DRIVE | diskutil unmountDisk force DRIVE" >&2
    exit 2
    ;;
esac
