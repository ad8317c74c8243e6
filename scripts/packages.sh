# Sourced by ./run, ./test, ./check and .ci/run: which Debian packages each of them needs, and how to get them.
# shellcheck shell=bash
source scripts/progress.sh
# Qt reads words in UTF-8, and would say so at each start where the locale says otherwise.
[ "$(locale charmap 2>/dev/null)" = UTF-8 ] || export LC_ALL=C.UTF-8
export CCACHE_SLOPPINESS=pch_defines,time_macros # else it leaves out what is compiled with headers read before

build_packages=(
  g++ cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-base-private-dev libgl-dev libsqlite3-dev libcurl4-openssl-dev libpugixml-dev
  unixodbc-dev qtkeychain-qt6-dev
  libgtest-dev libgmock-dev libfreexl-dev tdsodbc openssl) # the presets build the tests too
run_packages=(qt6-qpa-plugins qt6-translations-l10n fonts-nanum libodbc2 tdsodbc libsecret-1-0)
screen_packages=(xvfb openbox xdotool x11-utils x11-xserver-utils imagemagick curl sqlite3)
# Korean input methods as people have them, what reads the accessibility bus, and a key store.
hands_packages=(dbus-daemon dbus-bin fcitx5 fcitx5-hangul fcitx5-frontend-qt6 ibus ibus-hangul at-spi2-core iproute2
  python3-gi gir1.2-glib-2.0 gnome-keyring)
office_packages=(libreoffice-calc-nogui) # the tests have it open what the program writes
picture_packages=(poppler-utils) # a picture of what the office draws
bench_packages=(xvfb bsdextrautils
  python3-xlrd python3-xlwt libreoffice-calc-nogui sqlite3 unixodbc) # what a user could take instead
sanitize_packages=(clang libclang-rt-dev)
check_packages=(clang clang-format clang-tidy git python3)
windows_packages=(g++-mingw-w64-x86-64-posix dpkg-dev qt6-base-dev-tools qt6-translations-l10n tcl librsvg2-bin icoutils
  googletest)
installer_packages=(nsis zip)
wine_packages=(wine wine64 xclip)
packaging_packages=(dpkg-dev file mmdebstrap lintian desktop-file-utils)

# missing_packages NAME...: prints those of them that are not installed, a line each.
missing_packages() {
  printf '%s\n' "$@" | sort -u | grep -vxFf <(
    dpkg-query -W -f='${binary:Package} ${db:Status-Status}\n' 2>/dev/null | sed -n 's/\(:[^ ]*\)\? installed$//p') || true
}

# ensure_packages NAME...: installs what is missing of them, through apt, with sudo unless root.
ensure_packages() {
  local missing=()
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -eq 0 ] && return 0
  if ! command -v apt-get >/dev/null; then
    echo "These packages are missing, and apt is not there to install them: ${missing[*]}" >&2
    return 1
  fi
  local as_root=(env DEBIAN_FRONTEND=noninteractive)
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing; install them as root: ${missing[*]}" >&2
      return 1
    }
    as_root=(sudo "${as_root[@]}")
  fi
  echo "Missing packages: ${missing[*]}"
  follow "package lists" "${as_root[@]}" apt-get update -qq || return 1
  follow "packages" "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# configure_and_build PRESET [TARGET...]: with ccache where it is there; in CI warnings are errors.
configure_and_build() {
  local preset=$1 targets=()
  shift
  # A newer compiler's new warning must not stop a user, only the change that brings it.
  local options=(-DCMAKE_COMPILE_WARNING_AS_ERROR="${CI:+ON}")
  command -v ccache >/dev/null && options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  # A tree that stands configures itself anew when something has changed.
  if [ -n "${CI:-}" ] || [ CMakePresets.json -nt "build/$preset/build.ninja" ]; then
    follow "configuration" cmake --preset "$preset" "${options[@]}" || return 1
  fi
  [ $# -gt 0 ] && targets=(--target "$@")
  follow "build" cmake --build --preset "$preset" "${targets[@]}"
}
