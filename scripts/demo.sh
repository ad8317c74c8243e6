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
  echo "The simulated gateway did not start. Is port 8790 taken?" >&2
  cat "$log" >&2
  return 1
}

# say_in_window NOTICE LINE...: on the terminal too, if there is one.
say_in_window() {
  local notice=$1 words
  shift
  words=$(printf '%s\n' "$@")
  echo "$words" >&2
  "$notice" '문자메시지 체험하기' "$words" || true
}

# run_demo FOLDER NOTICE: the program in FOLDER on the demo database, which is made on first use. The gateway holds what
# the database has reserved, and ends with the shell that called this. What keeps the demo from starting, the program
# NOTICE says in a window.
run_demo() {
  local bin=$1 notice=$2 data="${XDG_DATA_HOME:-$HOME/.local/share}/tsms" lock
  local database="$data/demo.db"
  mkdir -p "$data"
  # Held by the programs too: whatever still runs of a demo is one that runs.
  exec {lock}>"$data/demo.lock"
  if ! flock -n "$lock"; then
    say_in_window "$notice" '문자메시지 체험판이 이미 실행 중입니다.' \
      '열려 있는 창을 쓰시거나, 그 창을 닫은 다음 다시 실행하여 주십시오.'
    return 1
  fi
  [ -e "$database" ] || "$bin/tsms-db" create "$database" --demo

  trap 'kill "${gateway:-}" 2>/dev/null || true; wait 2>/dev/null || true' EXIT
  "$bin/tsms-db" reservations "$database" >"$data/reservations.json"
  if ! start_gateway "$bin/tsms-gateway" "$data/gateway.log" --hold "$data/reservations.json"; then
    say_in_window "$notice" '모의 문자메시지 서버를 시작하지 못하였습니다.' '8790번 포트를 다른 프로그램이 쓰고 있을 수 있습니다.'
    return 1
  fi
  "$bin/tsms" "$database■(embedded)■0■demo■demo■1■demo"
}
