#!/usr/bin/env bash
# Launch time under Xvfb: from start until the first character window stands, less the splash
# the app always shows for 3 s, against a bare Qt Widgets window on the same display, in turns.
# Prints each pair and the ratio of the means (target: at most 1.2). Usage: bench/launch.sh [RUNS]
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
if [[ -z "${DISPLAY:-}" ]]; then
  exec xvfb-run -a -s "-screen 0 1280x900x24" "$0" "$@"
fi
runs=${1:-5}
splash=3.0
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
# Known rule data and an empty state folder: the start asks nothing and offers nothing back.
mkdir -p "$scratch/config/zephalon" "$scratch/state"
printf '<zephalonprefs><pathtodatafile>%s</pathtodatafile></zephalonprefs>\n' \
  "$root/data/rules/sample.xml" > "$scratch/config/zephalon/zephalonprefs.xml"

# Seconds from the start of the command until a visible window of that title stands.
seconds_to_window() {
  local title="$1"; shift
  local start end
  start=$(date +%s.%N)
  "$@" >/dev/null 2>&1 &
  local pid=$!
  # Polled every 10 ms: xdotool's own --sync looks only twice a second.
  until xdotool search --onlyvisible --name "$title" >/dev/null 2>&1; do sleep 0.01; done
  end=$(date +%s.%N)
  kill "$pid" 2>/dev/null; wait "$pid" 2>/dev/null || true
  awk -v a="$start" -v b="$end" 'BEGIN { print b - a }'
}

app_total=0 bare_total=0
for ((run = 1; run <= runs; ++run)); do
  app=$(XDG_CONFIG_HOME="$scratch/config" XDG_STATE_HOME="$scratch/state" \
        seconds_to_window "Character Creator" "$root/build/bin/zephalon")
  app=$(awk -v a="$app" -v s="$splash" 'BEGIN { print a - s }')
  bare=$(seconds_to_window Bare "$root/build/bin/zephalon-bare-window")
  printf 'run %d: app %.3f s (splash taken off), bare window %.3f s\n' "$run" "$app" "$bare"
  app_total=$(awk -v t="$app_total" -v a="$app" 'BEGIN { print t + a }')
  bare_total=$(awk -v t="$bare_total" -v b="$bare" 'BEGIN { print t + b }')
done
awk -v a="$app_total" -v b="$bare_total" 'BEGIN { printf "launch_over_bare %.2f\n", a / b }'
