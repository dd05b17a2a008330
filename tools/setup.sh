# Shared by the scripts: installs what is missing and configures the build.
# Sourced, with $root set to the project's root. Progress goes to standard error, so that what the
# program prints stays alone on standard output.

build="$root/build"

# need WHY PACKAGE... : installs the Debian packages that are not there yet.
need() {
  local why=$1 package missing=()
  shift
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "$why needs these packages, and there is no sudo to install them with: ${missing[*]}" >&2
      exit 1
    }
    as_root=(sudo)
  fi
  echo "Installing for $why: ${missing[*]}" >&2
  "${as_root[@]}" apt-get update -qq >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# need_brew WHY FORMULA... : the same with Homebrew.
need_brew() {
  local why=$1 formula missing=()
  shift
  command -v brew >/dev/null || {
    echo "$why needs Homebrew to install: $*" >&2
    exit 1
  }
  for formula in "$@"; do
    brew list --versions "$formula" >/dev/null 2>&1 || missing+=("$formula")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing for $why: ${missing[*]}" >&2
  brew install --quiet "${missing[@]}" >&2
}

need_for_building() {
  if [ "$(uname)" = Darwin ]; then
    need_brew "building" qt cmake ninja
  elif command -v apt-get >/dev/null; then
    need "building" g++ cmake ninja-build qt6-base-dev qt6-svg-dev \
      libxcb1-dev pkg-config
  else
    echo "This script knows apt-get and Homebrew only; the packages to install are in README.md." >&2
  fi
}

need_for_testing() {
  if [ "$(uname)" = Darwin ]; then
    need_brew "testing" googletest
  elif command -v apt-get >/dev/null; then
    need "testing" libgtest-dev libgmock-dev dbus fonts-dejavu-core fonts-wqy-microhei tzdata \
      appstream desktop-file-utils at-spi2-core dbus-bin dbus-daemon dunst gir1.2-atspi-2.0 \
      imagemagick libfaketime libx11-6 openbox python3 python3-dbusmock python3-gi trayer util-linux \
      x11-utils xdotool xfce4-panel xfconf xvfb
  fi
}

# configure ARGUMENT... : prepares the build directory, unless it is prepared and nothing is asked.
configure() {
  if [ $# -gt 0 ] || [ ! -f "$build/build.ninja" ]; then
    local prefix=
    [ "$(uname)" != Darwin ] || prefix=$(brew --prefix)
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
      ${prefix:+"-DCMAKE_PREFIX_PATH=$prefix"} "$@" >&2
  fi
}
