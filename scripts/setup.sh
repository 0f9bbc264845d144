# SPDX-License-Identifier: MIT
# Sourced by ./run and ./test: installs what is missing and builds. Speaks on standard error only, because
# standard output belongs to the program.

: "${root:?is the folder of the project, set by the script that sources this}"

say() { printf '%s\n' "$*" >&2; }

fail() {
    say "${0##*/}: $*"
    exit 1
}

# The packages of the given groups of packages.txt, one a line.
packages_of() {
    local group
    for group in "$@"; do
        awk -v group="$group" '$1 == group { print $2 }' "$root/packages.txt"
    done | sort -u
}

# Those of the given groups that this machine lacks, one a line.
missing_packages() {
    local wanted
    mapfile -t wanted < <(packages_of "$@")
    comm -13 <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
        sed -n 's/^installed //p' | sort -u) <(printf '%s\n' "${wanted[@]}")
}

# Installs what the given groups of packages.txt lack here.
install_packages() {
    local missing as_root=() log=$root/build/apt.log
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        fail "This needs Debian 12 or a relative of it (apt-get is not here). Elsewhere, install what packages.txt" \
            "lists under your system's names, then: cmake --preset release && cmake --build build/release"
    fi

    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0

    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            fail "Packages are missing and sudo is not here. As root, run: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing ${#missing[@]} packages and what they depend on; this takes a few minutes the first time:"
    say "  ${missing[*]}"
    "${as_root[@]}" true || fail "sudo did not let you in. As root, run: apt-get install ${missing[*]}"
    "${as_root[@]}" apt-get -q update >"$log" 2>&1 ||
        say "The lists of packages could not be renewed; trying with those that are here."
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y --no-install-recommends install "${missing[@]}" >>"$log" 2>&1; then
        tail -n 5 "$log" >&2
        fail "The packages could not be installed (all that apt said is in $log). Is there a network, and is this" \
            "Debian 12 with the section main?"
    fi
}

# Builds the given CMake preset into build/PRESET. What CMake says of the configuration goes to a log.
build_preset() {
    local preset=$1 log=$root/build/$1-configure.log
    say "Building (preset $preset)"
    if ! (cd "$root" && cmake --preset "$preset") >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        fail "The build could not be configured (all that CMake said is in $log)."
    fi
    (cd "$root" && cmake --build --preset "$preset") >&2 ||
        fail "The build failed; the first error above says where."
}

# Makes build/, and holds it until the script ends: two runs at once would build into each other.
hold_build_folder() {
    mkdir -p "$root/build" 2>/dev/null || true
    [[ -w $root/build ]] ||
        fail "$(id -un) may not write into $root/build. Whose folder is it? (ls -ld $root $root/build)"
    exec {build_lock}>"$root/build/.lock"
    flock -n "$build_lock" || { say "Waiting for another build to end"; flock "$build_lock"; }
}
