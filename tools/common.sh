# SPDX-FileCopyrightText: The Quorbit authors
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

# Shared by the scripts of the repository, which source this file after setting `root` to the top of the repository.

# Debian packages by purpose. All others are needed in addition to `build_packages`.
# shellcheck disable=SC2034
{
    build_packages=(cmake g++ libqt6svg6 ninja-build qt6-base-dev)
    test_packages=(libgmock-dev libgtest-dev)
    lint_packages=(clang-format clang-tidy)
    bench_packages=(fuse3 libfuse3-dev pkgconf rclone rsync)
    package_packages=(dpkg-dev librsvg2-bin lintian)
    check_package_packages=(appstream debootstrap desktop-file-utils man-db)
    screenshot_packages=(fonts-dejavu-core imagemagick openbox pngquant qt6-gtk-platformtheme x11-utils xdotool xvfb)
}

: "${root:?must be set by the caller}"

# Redirects settings, logs and caches of the programs started from here to a folder.
use_xdg_folders() # FOLDER
{
    export XDG_CONFIG_HOME=$1/config XDG_STATE_HOME=$1/state XDG_DATA_HOME=$1/data XDG_CACHE_HOME=$1/cache
}

say() { printf '%s\n' "$*" >&2; }
die() { say "$(basename "$0"): $*"; exit 1; }

# Runs a command with its output going to a log. If the command fails, prints the log and exits.
quietly() # LOG COMMAND...
{
    local log=$1
    shift
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        die "command failed: $* (output above, also in $log)"
    fi
}

# Installs missing packages. Returns at once, without root, if none are missing.
install_packages() # PACKAGE...
{
    if ! command -v dpkg-query >/dev/null; then
        say "Not a Debian system; make sure that the equivalents of these packages are installed: $*"
        return
    fi
    local installed package missing=() as_root=()
    # shellcheck disable=SC2016
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        grep -qx "$package installed" <<<"$installed" || missing+=("$package")
    done
    [[ ${#missing[@]} -eq 0 ]] && return

    if [[ $EUID -ne 0 ]]; then
        command -v sudo >/dev/null ||
            die "missing packages and no sudo; run as root: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing ${missing[*]}"
    mkdir -p "$root/build"
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
    quietly "$root/build/packages.log" "${as_root[@]}" "${apt[@]}" update
    quietly "$root/build/packages.log" "${as_root[@]}" "${apt[@]}" install -y --no-install-recommends "${missing[@]}"
}

# Configures build/PRESET if needed: the first time, after a change of the presets, and if the build folder was copied
# along with the repository. Ninja reruns CMake itself in all other cases.
configure() # PRESET
{
    local preset=$1 folder=$root/build/$1 fresh=()
    if [[ -f $folder/CMakeCache.txt ]] &&
        ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$(realpath "$root")" "$folder/CMakeCache.txt"; then
        fresh=(--fresh)
    elif [[ -f $folder/build.ninja && $folder/build.ninja -nt $root/CMakePresets.json ]]; then
        return
    fi
    mkdir -p "$root/build"
    quietly "$root/build/$preset.log" cmake -S "$root" --preset "$preset" "${fresh[@]}"
}

# Builds targets in build/PRESET.
build() # PRESET TARGET...
{
    local preset=$1
    shift
    [[ -f $root/build/$preset/build.ninja ]] || say "Building the preset $preset; the first build takes several minutes"
    configure "$preset"
    quietly "$root/build/$preset.log" cmake --build "$root/build/$preset" --target "$@"
}
