#!/bin/sh
# Installs what is missing of the named groups of packages.txt (all groups: build demo test db
# lint bench windows).
#
#   scripts/setup.sh build test
set -eu
cd "$(dirname "$0")"

missing=
for group in "$@"; do
  packages=$(awk -v group="$group" '$1 == group { print $2 }' packages.txt)
  for package in $packages; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      missing="$missing $package"
  done
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" -eq 0 ]; then
  as_root=
elif command -v sudo >/dev/null 2>&1; then
  as_root=sudo
else
  echo "These packages are needed:$missing" >&2
  echo "Install them as root (apt-get install$missing), or run this script as root or with sudo." >&2
  exit 1
fi

echo "installing:$missing"
export DEBIAN_FRONTEND=noninteractive
# Lists may be missing or old on a new machine; a failing update shows in the install.
$as_root apt-get update -qq || true
# A server package is to be there, not to run: no installed service is started. Where the machine
# has a policy of its own, that one holds.
policy=/usr/sbin/policy-rc.d
if [ ! -e $policy ]; then
  printf '#!/bin/sh\nexit 101\n' | $as_root tee $policy >/dev/null
  $as_root chmod 755 $policy
  trap '$as_root rm -f $policy' EXIT
  trap 'exit 130' INT TERM
fi
# shellcheck disable=SC2086  # a list of names
$as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
