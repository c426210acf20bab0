# SPDX-FileCopyrightText: The Quorbit authors
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

# What the commands of the repository share; sourced by ./run, ./test, ./lint, ./bench and .ci/run.
# The caller has set `root` to the folder of the repository.

# Debian packages by purpose. `lint_packages` and the rest come on top of `build_packages`.
# shellcheck disable=SC2034
{
    build_packages=(cmake g++ libqt6svg6 ninja-build qt6-base-dev)
    test_packages=(libgmock-dev libgtest-dev)
    lint_packages=(clang-format clang-tidy)
    bench_packages=(rsync)
    package_packages=(dpkg-dev librsvg2-bin lintian)
    check_package_packages=(appstream debootstrap desktop-file-utils man-db)
    screenshot_packages=(fonts-dejavu-core imagemagick openbox pngquant qt6-gtk-platformtheme x11-utils xdotool xvfb)
}

: "${root:?the caller sets it}"

say() { printf '%s\n' "$*" >&2; }
die() { say "$(basename "$0"): $*"; exit 1; }

# Runs a command with its output in a log; shows the log only if the command fails.
quietly() # LOG COMMAND...
{
    local log=$1
    shift
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        die "this failed: $* (output above, also in $log)"
    fi
}

# Installs the packages that are missing. Takes no time, and no rights, when there are none.
install_packages() # PACKAGE...
{
    if ! command -v dpkg-query >/dev/null; then
        say "This is not a Debian system; the build expects what these packages hold: $*"
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
            die "packages are missing and there is no sudo; as root: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing ${missing[*]}"
    mkdir -p "$root/build"
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
    quietly "$root/build/packages.log" "${as_root[@]}" "${apt[@]}" update
    quietly "$root/build/packages.log" "${as_root[@]}" "${apt[@]}" install -y --no-install-recommends "${missing[@]}"
}

# Configures build/PRESET where that is needed: the first time, after a change of the presets, and in a copy of the
# repository that brought along the build folder of the original. Everything else the build sees for itself.
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

# Brings targets of build/PRESET up to date.
build() # PRESET TARGET...
{
    local preset=$1
    shift
    [[ -f $root/build/$preset/build.ninja ]] || say "Building $preset; the first time this takes a while"
    configure "$preset"
    quietly "$root/build/$preset.log" cmake --build "$root/build/$preset" --target "$@"
}
