#!/usr/bin/env bash
# Runs a Windows program under Wine, in a Wine folder of this build tree.
#
#   scripts/wine.sh x64 build/windows-x64/bin/com_client.exe ARGUMENT...
#   scripts/wine.sh x86 regsvr32 /s ...
#   scripts/wine.sh x86 --end          ends Wine's server of that folder
#
# The first call makes the folder build/wine/x64 or build/wine/x86. 32-bit programs need 32-bit
# Wine: where the package wine32 is not installed, a Debian i386 system with it is put into
# build/wine-i386 (as root, once, some minutes) and the program runs inside. Exit status 77 where
# there is no Wine that can run it; the last line says why.
set -eu
cd "$(dirname "$0")/.."
tree=$PWD
arch=$1
shift
i386=$tree/build/wine-i386

no_wine() {
  echo "$1"
  exit 77
}

export WINEDEBUG=${WINEDEBUG:--all}
# No offers to download Gecko or Mono.
export WINEDLLOVERRIDES="mscoree=;mshtml="
export WINEPREFIX=$tree/build/wine/$arch
mkdir -p build/wine

inside=()
case $arch in
  x64)
    [ -e /usr/lib/wine/wine64 ] || no_wine "wine64 is not installed"
    export WINEARCH=win64
    wine=/usr/lib/wine/wine64 server=wineserver
    ;;
  x86)
    export WINEARCH=win32
    wine=/usr/lib/wine/wine server=wineserver
    if [ ! -e /usr/lib/wine/wine ]; then
      if [ ! -e "$i386/usr/lib/wine/wine" ]; then
        [ "$(id -u)" -eq 0 ] || no_wine "32-bit Wine is not installed, and only root can make build/wine-i386"
        command -v debootstrap >/dev/null || no_wine "neither wine32 nor debootstrap is installed"
        rm -rf "$i386"
        debootstrap --arch=i386 --variant=minbase --include=wine,wine32 bookworm "$i386" \
          >build/wine/debootstrap.log 2>&1 || no_wine "debootstrap failed: build/wine/debootstrap.log"
      fi
      # The tree and the X server's socket at their own places, in a mount space of its own.
      # shellcheck disable=SC2016  # the inner shell's variables
      inside=(unshare -m sh -c '
        tree=$1 root=$2 folder=$3
        shift 3
        mkdir -p "$root$tree" "$root/tmp/.X11-unix"
        mount --bind "$tree" "$root$tree" && mount -t proc proc "$root/proc" || exit 77
        [ ! -d /tmp/.X11-unix ] || mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix" || exit 77
        exec chroot "$root" sh -c "cd \"\$0\" && exec \"\$@\"" "$folder" "$@"' sh "$tree" "$i386" "$tree")
    fi
    ;;
  *)
    echo "usage: scripts/wine.sh x64|x86 PROGRAM [ARGUMENT...]" >&2
    exit 2
    ;;
esac

if [ "${1:-}" = --end ]; then
  exec "${inside[@]}" "$server" -k
fi
if [ ! -e "$WINEPREFIX/system.reg" ]; then
  "${inside[@]}" "$wine" wineboot -i >build/wine/"$arch".log 2>&1 ||
    no_wine "Wine cannot make its folder: build/wine/$arch.log"
  "${inside[@]}" "$server" -w
fi
exec "${inside[@]}" "$wine" "$@"
