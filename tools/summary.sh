# Adds up the test runs of several presets. Sourced after common.sh.
# shellcheck shell=bash
# shellcheck source=tools/common.sh disable=SC2154

# last_words <log> : of each test that failed, the last that it told, without what passed in it.
last_words() {
    awk -v keep=15 '
        function tell(    i) {
            if (name != "") {
                print "\n" name ":"
                for (i = count > keep ? count - keep + 1 : 1; i <= count; ++i) print "    " lines[i]
            }
            name = ""; count = 0
        }
        /^ *[0-9]+\/[0-9]+ Test +#[0-9]+: / { tell(); if (/\*\*\*/) name = $4; next }
        /^ *Start +[0-9]+: / || /^[0-9]+% tests passed/ { tell(); next }
        name != "" && NF > 0 && !/^PASS / { lines[++count] = substr($0, 1, 1000) }
        END { tell() }' "$1"
}

# summary <preset>... : prints what failed and why, and one closing line for all runs, in CTest's own words.
# Fails when a test failed, or when a run has no closing line of its own.
summary() {
    local preset log line failed=0 total=0 broken=0 seconds=0
    local -a failures=()
    say "All runs"
    for preset in "$@"; do
        log="$root/build/logs/test-$preset.log"
        line="$(grep -E '^[0-9]+% tests passed, [0-9]+ tests? failed out of [0-9]+' "$log" 2>/dev/null | tail -n 1 || true)"
        if [ -z "$line" ]; then
            echo "$preset: the tests did not run to their end"
            broken=1
            continue
        fi
        echo "$preset: $line"
        last_words "$log"
        [[ "$line" =~ ,\ ([0-9]+)\ tests?\ failed\ out\ of\ ([0-9]+) ]]
        failed=$((failed + BASH_REMATCH[1]))
        total=$((total + BASH_REMATCH[2]))
        seconds="$(awk -v sum="$seconds" '/^Total Test time/ { sum += $(NF - 1) } END { printf "%.2f", sum }' "$log")"
        mapfile -t -O "${#failures[@]}" failures \
            < <(awk -v preset="$preset" '/^The following tests FAILED:/ { on = 1; next }
                    on && /^[[:space:]]+[0-9]+ - / { sub(/^[[:space:]]+/, ""); print "\t" preset " " $0 }' "$log")
    done
    if [ "${#failures[@]}" -gt 0 ]; then
        printf '\nThe following tests FAILED:\n'
        printf '%s\n' "${failures[@]}"
    fi
    [ "$broken" -eq 0 ] && [ "$total" -gt 0 ] || return 1
    printf '\n%d%% tests passed, %d tests failed out of %d\n\nTotal Test time (real) = %s sec\n' \
        $(((total - failed) * 100 / total)) "$failed" "$total" "$seconds"
    [ "$failed" -eq 0 ]
}
