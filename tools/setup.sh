# Shared by the scripts: installs what is missing and configures the build.
# Sourced, with $root set to the project's root. Progress goes to standard error, so that what the
# program prints stays alone on standard output.

build="$root/build"

# The package manager of this machine, empty where it is none of these.
package_manager() {
  local name
  [ "$(uname)" != Darwin ] || { echo brew; return; }
  for name in apt-get dnf pacman zypper; do
    command -v "$name" >/dev/null && { echo "$name"; return; }
  done
  return 0
}
manager=$(package_manager)

# What places windows on Wayland, where the system has it for Qt 6: Debian 12 has it for Qt 5.
layer_shell_packages() {
  ! apt-cache show liblayershellqtinterface-dev 2>/dev/null | grep -E '^Version: ([0-9]+:)?6' >/dev/null ||
    echo liblayershellqtinterface-dev libwayland-dev
}

# packages PURPOSE: the packages for it, by the names of this machine's package manager.
packages() {
  case "$manager $1" in
    # Qt 6.5 and later load the X11 platform only with xcb-cursor.
    "apt-get building") echo g++ cmake ninja-build nlohmann-json3-dev qt6-base-dev qt6-svg-dev \
      libxcb1-dev libxcb-cursor0 pkg-config $(layer_shell_packages) ;;
    "apt-get testing") echo libgtest-dev libgmock-dev dbus fonts-dejavu-core fonts-wqy-microhei \
      tzdata appstream desktop-file-utils at-spi2-core dbus-bin dbus-daemon dunst \
      gir1.2-atspi-2.0 imagemagick libfaketime libx11-6 openbox python3 python3-dbusmock \
      python3-gi qt6-wayland sway trayer util-linux waybar x11-utils xdotool xfce4-panel xfconf \
      xvfb ;;
    "apt-get Objective-C") echo clang-19 libblocksruntime-dev ;;
    "dnf building") echo gcc-c++ cmake ninja-build json-devel qt6-qtbase-devel qt6-qtsvg-devel \
      libxcb-devel xcb-util-cursor pkgconf-pkg-config ;;
    "dnf testing") echo gtest-devel gmock-devel dbus-daemon dejavu-sans-fonts wqy-microhei-fonts \
      tzdata appstream desktop-file-utils python3 ;;
    "pacman building") echo base-devel cmake ninja nlohmann-json qt6-base qt6-svg libxcb \
      xcb-util-cursor ;;
    "pacman testing") echo gtest dbus ttf-dejavu wqy-microhei tzdata appstream \
      desktop-file-utils python ;;
    "zypper building") echo gcc-c++ cmake ninja nlohmann_json-devel qt6-base-devel qt6-svg-devel \
      libxcb-devel libxcb-cursor0 pkgconf-pkg-config ;;
    "zypper testing") echo gtest gmock dbus-1-daemon dejavu-fonts wqy-microhei-fonts timezone \
      AppStream desktop-file-utils python3 ;;
    "apt-get wayland" | "pacman wayland") echo qt6-wayland ;;
    "dnf wayland") echo qt6-qtwayland ;;
    "zypper wayland") echo qt6-waylandclient ;;
    "brew building") echo cmake ninja nlohmann-json ;;
    "brew testing") echo googletest ;;
  esac
}

# is_installed PACKAGE
is_installed() {
  case "$manager" in
    apt-get) dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'ok installed' ;;
    dnf | zypper) rpm -q --whatprovides "$1" >/dev/null 2>&1 ;;
    pacman) pacman -T "$1" >/dev/null ;;
    brew) brew list --versions "$1" >/dev/null 2>&1 ;;
  esac
}

# need WHY PACKAGE... : installs the packages that are not there yet.
need() {
  local why=$1 package missing=() as_root=() install=()
  shift
  if [ "$manager" = brew ] && ! command -v brew >/dev/null; then
    echo "$why needs Homebrew (https://brew.sh) to install: $*" >&2
    exit 1
  fi
  for package in "$@"; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  [ "$manager" = brew ] || [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  case "$manager" in
    apt-get) install=(apt-get install -y -qq --no-install-recommends) ;;
    dnf) install=(dnf install -y -q) ;;
    pacman) install=(pacman -S --needed --noconfirm) ;;
    zypper) install=(zypper --non-interactive --quiet install --no-recommends) ;;
    brew) install=(brew install --quiet) ;;
  esac
  if [ ${#as_root[@]} -gt 0 ] && ! command -v sudo >/dev/null; then
    echo "$why needs packages that only root can install, and there is no sudo. As root, run:" >&2
    echo "  ${install[*]} ${missing[*]}" >&2
    exit 1
  fi
  echo "Installing for $why: ${missing[*]}" >&2
  if [ "$manager" = apt-get ]; then
    ${as_root[@]+"${as_root[@]}"} apt-get update -qq >&2
    install=(env DEBIAN_FRONTEND=noninteractive "${install[@]}")
  fi
  ${as_root[@]+"${as_root[@]}"} "${install[@]}" "${missing[@]}" >&2
}

# need_for PURPOSE: installs its packages, and ends where this script cannot do that.
need_for() {
  if [ -z "$manager" ]; then
    cat >&2 <<END
This script installs with apt-get, dnf, pacman, zypper or Homebrew, and none of them is here.
Install a C++20 compiler, CMake 3.25, Ninja, pkg-config, nlohmann-json, the headers of libxcb,
libxcb-cursor, Qt 6.4 or later (Core, Gui, Widgets, DBus, Svg) and, for the tests, GoogleTest with
GoogleMock. Then build:
  cmake -S . -B build -G Ninja -DCMAKE_UNITY_BUILD=ON && cmake --build build
END
    exit 1
  fi
  # shellcheck disable=SC2046 # one word a package
  need "$1" $(packages "$1")
}

# want_for PURPOSE: installs its packages if the sources of this machine have all of them.
want_for() {
  local package all
  all=$(packages "$1")
  [ -n "$all" ] || return 0
  for package in $all; do
    apt-cache show "$package" >/dev/null 2>&1 || return 0
  done
  # shellcheck disable=SC2086 # one word a package
  need "$1" $all
}

# configure ARGUMENT... : prepares the build directory, unless it is prepared and nothing is asked.
# Files are compiled in groups, which takes a third of the time; the preset "debug" does not.
configure() {
  if [ $# -gt 0 ] || [ ! -f "$build/build.ninja" ]; then
    local prefix=
    [ "$manager" != brew ] || prefix=$(brew --prefix)
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
      -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=12 \
      ${prefix:+"-DCMAKE_PREFIX_PATH=$prefix"} "$@" >&2
  fi
}
