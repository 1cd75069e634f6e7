#!/usr/bin/env bash
# What the running wallpaper costs: memory, CPU time, frames per second and wake-ups of the
# nivalis process, first while it runs at 30 frames per second, then while it is paused (the
# tray menu's Disable), on Xvfb with openbox and a private session bus.
#
# Usage: bench/host_usage.sh [build-dir]     (default build/; needs build/host/nivalis)
# Environment: RUN_SECONDS (600), PAUSE_SECONDS (120), WARMUP_SECONDS (15), SIZE (1920x1080).
# Wake-ups are context switches of the process's threads (voluntary and forced) per second:
# every timer that fires, every frame handed to the GL driver's threads counts.
set -euo pipefail

RUN_SECONDS=${RUN_SECONDS:-600}
PAUSE_SECONDS=${PAUSE_SECONDS:-120}
WARMUP_SECONDS=${WARMUP_SECONDS:-15}
SIZE=${SIZE:-1920x1080}

if [ -z "${HOST_USAGE_INNER:-}" ]; then
    cd "$(dirname "$0")/.."
    build=$(cd "${1:-build}" && pwd)
    [ -x "$build/host/nivalis" ] || { echo "host_usage: $build/host/nivalis is not built" >&2; exit 1; }
    tmp=$(mktemp -d)
    pids=()
    cleanup() {
        for ((i=${#pids[@]}-1; i>=0; i--)); do kill "${pids[i]}" 2>/dev/null || true; done
        wait 2>/dev/null || true
        rm -rf "$tmp"
    }
    trap cleanup EXIT
    exec {fd}>"$tmp/display"
    Xvfb -displayfd "$fd" -screen 0 "${SIZE}x24" -nolisten tcp +extension GLX >"$tmp/xvfb.log" 2>&1 &
    pids+=($!)
    for _ in $(seq 100); do [ -s "$tmp/display" ] && break; sleep 0.1; done
    export DISPLAY=":$(head -n1 "$tmp/display")"
    openbox --sm-disable >/dev/null 2>&1 &
    pids+=($!)
    sleep 1
    export XDG_CONFIG_HOME="$tmp/config" XDG_RUNTIME_DIR="$tmp/runtime"
    mkdir -p "$XDG_CONFIG_HOME/nivalis" "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
    printf '[General]\nfps=30\n' >"$XDG_CONFIG_HOME/nivalis/nivalis.conf"
    HOST_USAGE_INNER=1 dbus-run-session -- bash "$0" "$build/host/nivalis"
    exit $?
fi

# ---- inside the private session bus ----------------------------------------------------------
binary=$1
"$binary" >/dev/null 2>&1 &
pid=$!
trap 'kill $pid 2>/dev/null || true; wait $pid 2>/dev/null || true' EXIT

diag() { # diag METHOD ARGS... on the program's diagnostics object
    gdbus call --session --dest org.nivalis.Nivalis --object-path /org/nivalis/Nivalis/Diagnostics "$@"
}
property() {
    diag --method org.freedesktop.DBus.Properties.Get org.nivalis.Nivalis.Diagnostics "$1" |
        sed -E 's/^\(<(uint64 |)([^>]*)>,\)$/\2/'
}
for _ in $(seq 200); do property FrameCount >/dev/null 2>&1 && break; sleep 0.1; done

ticks_per_second=$(getconf CLK_TCK)
# One sample: elapsed ns, CPU ticks, RSS kB, peak RSS kB, switches of all threads, of the
# main thread, frames.
sample() {
    local stat cpu rss hwm all=0 main=0 t v n
    stat=$(cut -d' ' -f14,15 "/proc/$pid/stat")
    cpu=$(( ${stat% *} + ${stat#* } ))
    rss=$(awk '/^VmRSS/ {print $2}' "/proc/$pid/status")
    hwm=$(awk '/^VmHWM/ {print $2}' "/proc/$pid/status")
    for t in /proc/$pid/task/*; do
        v=$(awk '/^voluntary_ctxt_switches/ {print $2}' "$t/status" 2>/dev/null || echo 0)
        n=$(awk '/^nonvoluntary_ctxt_switches/ {print $2}' "$t/status" 2>/dev/null || echo 0)
        all=$(( all + ${v:-0} + ${n:-0} ))
        [ "$t" = "/proc/$pid/task/$pid" ] && main=$(( ${v:-0} + ${n:-0} ))
    done
    echo "$(date +%s%N) $cpu $rss $hwm $all $main $(property FrameCount)"
}
report() { # report LABEL SAMPLE_A SAMPLE_B
    read -r t0 c0 r0 _ a0 m0 f0 <<<"$2"
    read -r t1 c1 r1 h1 a1 m1 f1 <<<"$3"
    awk -v label="$1" -v t="$(( t1 - t0 ))" -v c="$(( c1 - c0 ))" -v hz="$ticks_per_second" \
        -v r0="$r0" -v r1="$r1" -v h1="$h1" -v a="$(( a1 - a0 ))" -v m="$(( m1 - m0 ))" -v f="$(( f1 - f0 ))" \
        'BEGIN { s = t / 1e9;
                 printf "%-8s %6.0f s  frames/s %6.2f  CPU %6.1f %%  RSS %7.1f -> %7.1f MiB (peak %7.1f)  wake-ups/s %8.1f (main thread %7.1f)\n",
                        label, s, f / s, 100 * c / hz / s, r0 / 1024, r1 / 1024, h1 / 1024, a / s, m / s }'
}

echo "host_usage: nivalis at $SIZE on Xvfb, ${RUN_SECONDS} s running, ${PAUSE_SECONDS} s paused"
sleep "$WARMUP_SECONDS"
[ "$(property Paused)" = "false" ] || { echo "host_usage: the wallpaper did not start" >&2; exit 1; }
a=$(sample)
sleep "$RUN_SECONDS"
b=$(sample)
report "running" "$a" "$b"

diag --method org.nivalis.Nivalis.Diagnostics.ToggleEnabled >/dev/null
sleep 5
[ "$(property Paused)" = "true" ] || { echo "host_usage: the wallpaper did not pause" >&2; exit 1; }
c=$(sample)
sleep "$PAUSE_SECONDS"
d=$(sample)
report "paused" "$c" "$d"
