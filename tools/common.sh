# Shell pieces shared by the scripts at the root. Sourced with $root set to the checkout.
# shellcheck shell=bash disable=SC2154

jobs="${KERNOVA_JOBS:-$(nproc 2>/dev/null || echo 2)}"
screen="1920x1080x24"

# Qt reads and writes file names in the locale's encoding; a bare machine has one that knows no umlaut.
[ "$(locale charmap 2>/dev/null)" = UTF-8 ] || export LC_ALL=C.UTF-8

say() { printf '\n== %s\n' "$*"; }

fail() {
    printf '\n%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# A passing step is one line; a failing one shows the end of what it printed.
quietly() {
    local log="$root/build/logs/$1.log" what="$2"
    shift 2
    mkdir -p "$root/build/logs"
    "$@" >"$log" 2>&1 </dev/null && return 0
    tail -n 40 "$log" >&2
    fail "$what failed; the whole output is in ${log#"$root"/}"
}

# Of what a build prints: its progress now and then, and whatever is no progress.
without_progress() {
    awk '/^\[[0-9]+\/[0-9]+\] / {
            last = substr($0, 1, 100); split(substr($1, 2), count, "/"); part = int(10 * count[1] / (count[2] + 0))
            if (part > told) { print last; told = part; last = "" }
            next
        }
        /^FAILED: / { print; getline; next }  # the command, which is long
        { print; fflush() }
        END { if (last != "") print last }'
}

configure_and_build() {
    local preset="$1" target="${2:-all}"
    say "Building ($preset)"
    quietly "configure-$preset" "Configuring the $preset build" cmake -S "$root" --preset "$preset"
    cmake --build "$root/build/$preset" --target "$target" -j "$jobs" </dev/null 2>&1 \
        | tee "$root/build/logs/build-$preset.log" | without_progress \
        || fail "the $preset build failed: see the first error above, or build/logs/build-$preset.log"
}

# A display that answers, not only a name of one in the environment.
have_display() { [ -n "${DISPLAY:-}" ] && xdotool getdisplaygeometry >/dev/null 2>&1; }

# Without the marks of a Wayland session, which Qt would follow instead.
with_virtual_display() {
    env -u WAYLAND_DISPLAY -u XDG_SESSION_TYPE xvfb-run -a -s "-screen 0 $screen" "$@"
}
