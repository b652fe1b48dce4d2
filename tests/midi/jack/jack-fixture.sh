#!/bin/sh
# Starts or stops the MIDI stack of the JACK tests: a JACK server with the
# dummy driver (no sound card, no realtime rights, no D-Bus) under a name of
# its own, and z1sim on it, loaded with the fixture's dumps.
#
#   jack-fixture.sh start STATE_DIR SERVER JACKD Z1SIM WRITE_DUMPS RATE
#   jack-fixture.sh stop STATE_DIR
#
# STATE_DIR keeps the logs, the process ids, the dumps (data/) and what
# z1sim saves (save/).
set -eu

command=$1
state=$2

stop_pid() {
    pidfile=$1
    [ -f "$pidfile" ] || return 0
    pid=$(cat "$pidfile")
    rm -f "$pidfile"
    kill -0 "$pid" 2>/dev/null || return 0
    kill -TERM "$pid" 2>/dev/null || true
    for _ in $(seq 50); do
        kill -0 "$pid" 2>/dev/null || return 0
        sleep 0.1
    done
    kill -KILL "$pid" 2>/dev/null || true
}

stop_all() {
    stop_pid "$state/z1sim.pid"
    stop_pid "$state/jackd.pid"
}

wait_for() {
    what=$1
    shift
    for _ in $(seq 200); do
        if "$@" >/dev/null 2>&1; then
            return 0
        fi
        sleep 0.1
    done
    echo "jack-fixture: $what did not come up" >&2
    return 1
}

case "$command" in
start)
    server=$3 jackd=$4 z1sim=$5 write_dumps=$6 rate=$7
    mkdir -p "$state"
    # A run that was cut short may have left its processes behind.
    stop_all
    rm -rf "$state/data" "$state/save"
    mkdir -p "$state/data" "$state/save"
    export JACK_DEFAULT_SERVER="$server"
    export JACK_NO_AUDIO_RESERVATION=1
    # setsid: the processes outlive this script, and CTest must not wait
    # for their output. A JACK MIDI port carries four bytes a frame in one
    # period: 4096 frames leave room for several pieces of 1000 bytes
    # when a busy machine delays a period.
    setsid "$jackd" -n "$server" -r -d dummy -p 4096 </dev/null >"$state/jackd.log" 2>&1 &
    echo $! >"$state/jackd.pid"
    if ! wait_for "the JACK server $server" jack_lsp -s "$server"; then
        cat "$state/jackd.log" >&2
        stop_all
        exit 1
    fi
    "$write_dumps" "$state/data"
    set --
    for file in "$state"/data/*.syx; do
        set -- "$@" --load "$file"
    done
    setsid "$z1sim" --api jack --name Z1 --rate "$rate" --save-dir "$state/save" "$@" \
        </dev/null >"$state/z1sim.log" 2>&1 &
    echo $! >"$state/z1sim.pid"
    if ! wait_for "z1sim" grep -q "^z1sim ready: Z1" "$state/z1sim.log"; then
        cat "$state/z1sim.log" >&2
        stop_all
        exit 1
    fi
    echo "JACK server $server with z1sim is up"
    ;;
stop)
    stop_all
    ;;
*)
    echo "usage: jack-fixture.sh start|stop STATE_DIR ..." >&2
    exit 2
    ;;
esac
