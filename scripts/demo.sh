# Sourced by ./run, by the installed tsms-demo and by scripts/demo-send: the program on a demo database, with the
# simulated gateway.
# shellcheck shell=bash

# start_gateway PROGRAM LOG [OPTION...]: the simulated gateway on its own port; waits until it listens. Its process
# number is in $gateway. Fails when it ends first, as it does when the port is taken.
start_gateway() {
  local program=$1 log=$2 patience
  shift 2
  : >"$log" # what an earlier one wrote says nothing of this one
  "$program" --port 8790 "$@" >"$log" 2>&1 &
  gateway=$!
  for patience in $(seq 100); do
    grep -q '^ready ' "$log" && return 0
    kill -0 "$gateway" 2>/dev/null || break
    sleep 0.1
  done
  echo "The simulated gateway did not start (is port 8790 taken?):" >&2
  cat "$log" >&2
  return 1
}

# run_demo FOLDER: the program in FOLDER on the demo database, which is made on first use. The gateway holds what the
# database has reserved, and ends with the shell that called this.
run_demo() {
  local bin=$1 data="${XDG_DATA_HOME:-$HOME/.local/share}/tsms"
  local database="$data/demo.db"
  mkdir -p "$data"
  [ -e "$database" ] || "$bin/tsms-db" create "$database" --demo

  trap 'kill "${gateway:-}" 2>/dev/null || true; wait 2>/dev/null || true' EXIT
  "$bin/tsms-db" reservations "$database" >"$data/reservations.json"
  start_gateway "$bin/tsms-gateway" "$data/gateway.log" --hold "$data/reservations.json"
  "$bin/tsms" "$database■(embedded)■0■demo■demo■1■demo"
}
