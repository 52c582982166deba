# shellcheck shell=bash
# What ./run, ./test and bench/run share. To be sourced, with `root` set to the project's folder.
: "${root:?}"

say() { printf '%s\n' "$*" >&2; }

# packages_of SECTION…: the names that stand in these sections of scripts/packages.
packages_of() {
    awk -v wanted=" $* " '
        { sub(/#.*/, "") }
        /^\[/ { gsub(/[][ \t]/, ""); inside = index(wanted, " " $0 " "); next }
        inside && NF { print $1 }' "$root/scripts/packages"
}

# missing_packages SECTION…: those that are not installed.
missing_packages() {
    local wanted
    mapfile -t wanted < <(packages_of "$@")
    comm -23 <(printf '%s\n' "${wanted[@]}" | sort -u) \
        <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
            awk '$1 == "installed" { print $2 }' | sort -u)
}

# install_missing SECTION…: touches neither network nor package manager when nothing is missing.
install_missing() {
    if ! command -v dpkg-query >/dev/null; then
        say "This is no Debian system: what stands in scripts/packages must be there already."
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0

    # Reads no answers, and waits for another package manager that is at work.
    local install="apt-get update && DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300"
    install+=" install -y --no-install-recommends ${missing[*]}"
    local -a rights
    if [ "$(id -u)" -eq 0 ]; then
        rights=()
    elif command -v sudo >/dev/null && { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
        rights=(sudo)
    else
        say "Packages are missing, and installing them needs root's rights. Run this as root, then start again:"
        say "  $install"
        exit 1
    fi
    say "Installing: ${missing[*]}"
    "${rights[@]}" sh -c "$install" >&2 || {
        say "The packages could not be installed. The command was:"
        say "  $install"
        exit 1
    }
}

# build PRESET TARGET…: configures where that is due, and builds.
build() {
    local preset="$1"
    shift
    (
        cd "$root" || exit 1
        if [ ! -e "build/$preset/build.ninja" ]; then
            cmake --preset "$preset" || exit 1
        fi
        cmake --build --preset "$preset" --target "$@"
    ) >&2 || {
        say "The build failed."
        exit 1
    }
}
