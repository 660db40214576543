# Installs what the build needs and this machine lacks. Sourced after common.sh.
# shellcheck shell=bash
# shellcheck source=tools/common.sh disable=SC2154

# Names the packages of packages.txt that are not installed, one a line.
missing_packages() {
    local installed package command
    # dpkg-query complains of every name it has never heard of: those are what is asked for.
    # shellcheck disable=SC2046
    installed="$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' \
        $(package_list | cut -d' ' -f1) 2>/dev/null | sed -n 's/^installed //p')"
    while read -r package command; do
        [ -n "$command" ] && command -v "$command" >/dev/null && continue
        grep -qxF -- "$package" <<<"$installed" || echo "$package"
    done < <(package_list)
}

package_list() { sed -e 's/#.*//' -e 's/[[:space:]]\+/ /g' -e 's/ $//' -e '/^$/d' "$root/tools/packages.txt"; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif [ -t 0 ] && [ -z "${CI:-}" ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

may_become_root() {
    [ "$(id -u)" -eq 0 ] && return 0
    command -v sudo >/dev/null || return 1
    { [ -t 0 ] && [ -z "${CI:-}" ]; } || sudo -n true 2>/dev/null
}

install_packages() {
    local list="tools/packages.txt"
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        fail "there is no apt-get here: install what $list names by your system's own means," \
            "then start again with KERNOVA_NO_INSTALL=1."
    fi
    local missing
    missing="$(missing_packages | tr '\n' ' ')"
    [ -n "${missing// /}" ] || return 0
    may_become_root \
        || fail "packages are missing, and this is neither root nor a user who may use sudo." \
            "Run as root: apt-get install --no-install-recommends $missing"
    say "Installing $missing"
    # The password, if sudo wants one, is asked for here and not behind a redirection.
    as_root true || fail "sudo refused; the packages above have to be installed first."
    quietly apt-update "Reading the package lists (is there a network?)" as_root apt-get -qq update
    # Unquoted: a list of names.
    # shellcheck disable=SC2086
    quietly apt-install "Installing packages" as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq -y --no-install-recommends install $missing
}

# npm ci starts from nothing each time, so it runs only when the lock file is newer than what it left.
install_npm() {
    local lock="$root/package-lock.json" done_mark="$root/node_modules/.package-lock.json"
    [ -f "$done_mark" ] && [ ! "$lock" -nt "$done_mark" ] && return 0
    command -v npm >/dev/null || fail "npm is missing: install it, then start again."
    say "Fetching fonts and web libraries with npm"
    quietly npm-ci "Fetching fonts and web libraries with npm (is there a network?)" npm ci --prefix "$root"
    touch "$done_mark"
}

install_missing() {
    [ -n "${KERNOVA_NO_INSTALL:-}" ] || install_packages
    install_npm
}
