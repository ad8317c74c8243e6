# Sourced by ./run, ./test and ./check: what takes a while says how far it is, and what it wrote comes out only where
# it fails.
# shellcheck shell=bash

# Prints one line a title: on a terminal it counts up in its place, elsewhere it comes once at the end.
progress_line() { # TITLE
  local title=$1 line percent shown=
  [ -t 2 ] && printf '%s ...' "$title" >&2
  while IFS= read -r line; do
    [ -t 2 ] && [[ $line =~ ^\ *\[?\ *([0-9]+)/([0-9]+)[^0-9] ]] || continue
    percent=$((100 * BASH_REMATCH[1] / BASH_REMATCH[2]))
    [ "$percent" = "$shown" ] || printf '\r%s ... %d %%' "$title" "$percent" >&2
    shown=$percent
  done
}

# What a build or a run of tests wrote, without what went well. Of a test that never came to its end its name stays.
only_failures() {
  awk '
    /^\[ RUN / { begun = $0; next }
    /^\[       OK / { begun = ""; next }
    /^\[[0-9]+\/[0-9]+\] / || /^ *Start +[0-9]+:/ || /^ *[0-9]+\/[0-9]+ Test .* Passed / { next }
    /^\[(----|====)/ || /plugin does not support|QStandardPaths: XDG_RUNTIME_DIR/ || /^$/ { next }
    begun != "" { print begun; begun = "" }
    { print }
    END { if (begun != "") print begun }'
}

# follow TITLE COMMAND...: runs it with one line of progress, read from the "n/m" at the head of its own lines.
follow() {
  local title=$1 log status=0 began=$SECONDS
  shift
  log=$(mktemp)
  "$@" 2>&1 | tee "$log" | progress_line "$title"
  status=${PIPESTATUS[0]}
  [ -t 2 ] && printf '\r' >&2
  if [ "$status" -eq 0 ]; then
    printf '%s: %d s     \n' "$title" $((SECONDS - began)) >&2
  else
    printf '%s: failed\n' "$title" >&2
    only_failures <"$log" >&2
  fi
  rm -f "$log"
  return "$status"
}
