#!/bin/sh
# quillon-cli against z1sim on the JACK fixture, for one item: the item is
# requested and must be the very dump z1sim was loaded with; the saved file
# is then sent back, and what z1sim takes and saves must be the same bytes.
#
#   cli-roundtrip.sh QUILLON_CLI ITEM DATA_FILE
#
# The fixture's environment names z1sim's ports and its folder.
set -eu

cli=$1 item=$2 data=$3
state=$QUILLON_JACK_FIXTURE
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cli" request "$item" --out "$work/$item.syx" --in "$QUILLON_Z1SIM_OUT" --out-port "$QUILLON_Z1SIM_IN" \
    --timeout 60
cmp "$work/$item.syx" "$state/data/$data"

ls "$state/save" >"$work/before"
"$cli" send "$work/$item.syx" --yes --out-port "$QUILLON_Z1SIM_IN" --rate 31250 --timeout 60

# The send ends when the last byte has left; z1sim saves the dump once it
# has taken it whole, a moment later, or several seconds later on a busy
# machine: up to half a minute is waited for.
for _ in $(seq 300); do
    ls "$state/save" >"$work/after"
    saved=$(comm -13 "$work/before" "$work/after" | head -n 1)
    if [ -n "$saved" ]; then
        cmp "$work/$item.syx" "$state/save/$saved"
        echo "$item: requested, sent back and saved by z1sim as $saved"
        exit 0
    fi
    sleep 0.1
done
echo "cli-roundtrip: z1sim saved nothing after the send of $item" >&2
exit 1
