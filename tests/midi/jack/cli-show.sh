#!/bin/sh
# quillon-cli show against z1sim on the JACK fixture: a show of three
# patches with the arpeggiator On runs to its end, and a longer one is ended
# by Ctrl+C after its first chord. z1sim must have taken each patch with
# Auto Run, Latch and the chosen pattern, played each chord, and released
# the last chord, so that nothing is left sounding.
#
#   cli-show.sh QUILLON_CLI
#
# The fixture's environment names z1sim's ports and its folder.
set -eu

cli=$1
state=$QUILLON_JACK_FIXTURE
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "cli-show: $*" >&2
    echo "--- show:" >&2
    cat "$work/show.out" "$work/stopped.out" >&2 2>/dev/null || true
    echo "--- z1sim since:" >&2
    cat "$work/z1sim.new" >&2 || true
    exit 1
}

# Byte n (from 1) of the unpacked patch of a 666-byte dump: behind the 6
# header bytes, groups of a byte of high bits and seven data bytes.
patch_byte() {
    file=$1 n=$2
    group=$(( (n - 1) / 7 ))
    place=$(( (n - 1) % 7 ))
    high=$(od -An -tu1 -j $((6 + group * 8)) -N1 "$file" | tr -d ' ')
    low=$(od -An -tu1 -j $((6 + group * 8 + 1 + place)) -N1 "$file" | tr -d ' ')
    echo $(( low + ((high >> place) & 1) * 128 ))
}

# The lines z1sim wrote after the mark.
since() {
    tail -n +"$(( $1 + 1 ))" "$state/z1sim.log" >"$work/z1sim.new"
}

# z1sim prints a note as it takes it; the last one may follow the end of
# the send by a moment.
wait_for_notes() {
    mark=$1 count=$2
    for _ in $(seq 100); do
        since "$mark"
        [ "$(grep -c '^note ' "$work/z1sim.new" || true)" -ge "$count" ] && return 0
        sleep 0.1
    done
    return 1
}

bank=$state/data/bank-a.syx
saved_before=$(ls "$state/save" | grep -c '^current-patch-' || true)
mark=$(wc -l <"$state/z1sim.log")

"$cli" show "$bank" --members 0-1,5 --interval 3 --arp on --pattern 7 --chords 0 \
    --out-port "$QUILLON_Z1SIM_IN" --rate 31250 >"$work/show.out" 2>&1 || fail "the show failed"
grep -q '^Sound show of 3 patches, one every 3 seconds, arpeggiator On, pattern row 7, chord sequence 0$' \
    "$work/show.out" || fail "no heading"
for line in '^1/3 A000 ' '^2/3 A001 ' '^3/3 A005 ' '^Show finished: 3 sent$'; do
    grep -q "$line" "$work/show.out" || fail "no line $line"
done
[ "$(grep -c '^  chord 60 64 67$' "$work/show.out")" -eq 3 ] || fail "not three chords"

wait_for_notes "$mark" 12 || fail "z1sim did not hear twelve notes"
grep '^note ' "$work/z1sim.new" | sed 's/ at .*//' >"$work/notes"
printf 'note on %s 100\n' 60 64 67 60 64 67 60 64 67 >"$work/expected"
printf 'note off %s 40\n' 60 64 67 >>"$work/expected"
cmp "$work/notes" "$work/expected" || fail "the notes differ"

# Three patches with the arpeggiator on, then the last one again untouched.
saved_after=$(ls "$state/save" | grep -c '^current-patch-' || true)
[ "$saved_after" -eq $((saved_before + 4)) ] || fail "z1sim saved $((saved_after - saved_before)) patches, not 4"
n=0
for file in $(ls "$state/save" | grep '^current-patch-' | tail -n 4); do
    n=$((n + 1))
    pattern=$(patch_byte "$state/save/$file" 484)
    arp=$(patch_byte "$state/save/$file" 485)
    if [ $n -le 3 ]; then
        [ "$pattern" -eq 7 ] || fail "patch $n has pattern $pattern"
        [ $((arp & 0x21)) -eq $((0x21)) ] || fail "patch $n has byte 485 of $arp"
    fi
done
echo "show: three patches, three chords, released at the end"

# Ctrl+C after the first chord runs Done: the chord is released. The
# output goes to a file of its own, which the loop below may read before
# the shell of the background show has made it.
mark=$(wc -l <"$state/z1sim.log")
"$cli" show "$bank" --members 10-20 --interval 3 --arp on --chords 1 \
    --out-port "$QUILLON_Z1SIM_IN" --rate 31250 >"$work/stopped.out" 2>&1 &
show=$!
for _ in $(seq 200); do
    grep -q '^  chord ' "$work/stopped.out" && break
    sleep 0.1
done
grep -q '^  chord 56 60 63$' "$work/stopped.out" || { kill $show; fail "no first chord"; }
kill -INT $show
wait $show || fail "the show ended badly after Ctrl+C"
grep -q '^Stopped after 1 of 11$' "$work/stopped.out" || fail "no stop line"
wait_for_notes "$mark" 6 || fail "z1sim did not hear the chord released"
grep '^note ' "$work/z1sim.new" | sed 's/ at .*//' >"$work/notes"
printf 'note on %s 100\n' 56 60 63 >"$work/expected"
printf 'note off %s 40\n' 56 60 63 >>"$work/expected"
cmp "$work/notes" "$work/expected" || fail "the notes after Ctrl+C differ"
echo "show: Ctrl+C released the chord"
