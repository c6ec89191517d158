#!/usr/bin/env bash
# Installs the Debian packages that a task needs, and only those that are missing.
#   tools/setup.sh GROUP...      groups: build test browser lint clang coverage pictures
# Written for Debian 12. Asks nothing; touches the network only when a package is missing.
set -euo pipefail

# `libcsv-dev` and the like are headers and libraries; the reports are printed with the letters of fonts-liberation;
# the rest are tools.
declare -A packages=(
  [build]="g++ make cmake ninja-build libsqlite3-dev libpugixml-dev libcli11-dev libfmt-dev libcsv-dev \
    libglib2.0-dev pkg-config qt6-base-dev qt6-webengine-dev qt6-pdf-dev libqt6svg6 fonts-liberation \
    qt6-tools-dev qt6-documentation-tools libqt6sql6-sqlite cmark-gfm"
  [test]="libgtest-dev libgmock-dev librapidcheck-dev libxml2-utils locales poppler-utils libshp-dev libfreexl-dev \
    python3 python3-dbfread python3-xlrd sqlite3"
  [browser]="chromium chromium-driver python3 python3-selenium"
  [lint]="clang-format clang-tidy shellcheck"
  [clang]="clang libclang-rt-14-dev"
  [coverage]="gcovr"
  [pictures]="poppler-utils imagemagick"
)
oldest_gcc=12

Say() { printf 'setup: %s\n' "$*"; }
Fail() {
  printf 'setup: %s\n' "$@" >&2
  exit 1
}

IsInstalled() { dpkg-query --show --showformat='${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed; }

# The packages of the groups named on the command line.
Wanted() {
  local group names
  for group in "$@"; do
    [[ -n ${packages[$group]-} ]] || Fail "no group is called \"$group\"; there are: ${!packages[*]}"
    read -ra names <<<"${packages[$group]}"
    printf '%s\n' "${names[@]}"
  done
}

Install() {
  local as_root=()
  if [[ $(id -u) -ne 0 ]]; then
    command -v sudo >/dev/null ||
      Fail "these packages are missing: $*" "installing them needs root; there is no sudo here. As root, run:" \
        "  apt-get update && apt-get install $*"
    as_root=(sudo)
  fi
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300)
  Say "installing $*"
  "${apt[@]}" update || Say "the package lists could not be refreshed; trying with those at hand"
  "${apt[@]}" install --no-install-recommends "$@" ||
    Fail "apt-get could not install: $*" "Look at its message above. Without network, install them by hand and try again."
}

CheckCompiler() {
  local version
  version=$(g++ -dumpfullversion 2>/dev/null) || Fail "g++ does not run; is it shadowed by another program of that name?"
  ((${version%%.*} >= oldest_gcc)) ||
    Fail "g++ is version $version; version $oldest_gcc or later is needed (Debian 12 has it)."
}

[[ $# -gt 0 ]] || Fail "name what to set up for: ${!packages[*]}"
wanted=$(Wanted "$@")

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
  Fail "this system has no apt; the installer knows Debian 12. Install what these packages hold by other means:" \
    "  ${wanted//$'\n'/ }" "then go on with \"make SETUP=: ...\", which leaves this step out."
fi

missing=()
for package in $wanted; do
  IsInstalled "$package" || missing+=("$package")
done
if ((${#missing[@]} > 0)); then
  Install "${missing[@]}"
fi
CheckCompiler
Say "everything is there for: $*"
