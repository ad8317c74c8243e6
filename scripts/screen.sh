# Sourced by what works the real program on a virtual display: the display with its window manager, windows,
# keys, clicks and pictures. Needs $out, a folder of the caller's own; everything started ends with the caller.
# shellcheck shell=bash

jobs_started=()
finish() {
  local job
  for job in "${jobs_started[@]}"; do kill "$job" 2>/dev/null || true; done
  wait 2>/dev/null || true
}
trap finish EXIT
fail() {
  echo "$(basename "$0"): $*" >&2
  exit 1
}
# until_true SECONDS COMMAND...: tries until it succeeds or time is up.
until_true() {
  local patience=$(($1 * 10))
  shift
  while ! "$@" >/dev/null 2>&1; do
    ((patience-- > 0)) || return 1
    sleep 0.1
  done
}
# in_background LOG COMMAND...: starts it, to end with the caller; its process number is in $started.
in_background() {
  local log=$1
  shift
  "$@" >"$log" 2>&1 &
  started=$!
  jobs_started+=("$started")
}

# A display of its own. Without mouse bindings the window manager holds no click back, so that clicks and keys
# keep their order on a busy machine too.
open_screen() { # [WIDTHxHEIGHT]
  local number size=${1:-1280x900}
  # The server itself takes the first number that is free.
  : >"$out/display"
  Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$out/display" >"$out/xvfb.log" 2>&1 &
  jobs_started+=($!)
  until_true 10 test -s "$out/display" || fail "no virtual display could be started"
  DISPLAY=:$(<"$out/display")
  export DISPLAY
  export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=$out/runtime
  mkdir -m 700 "$XDG_RUNTIME_DIR"
  cat >"$out/openbox.xml" <<'XML'
<openbox_config xmlns="http://openbox.org/3.4/rc"><focus><focusNew>yes</focusNew></focus>
<mouse></mouse><keyboard></keyboard></openbox_config>
XML
  in_background "$out/openbox.log" openbox --config-file "$out/openbox.xml"
  # A window that comes while the manager is still starting may never be shown.
  until_true 20 window_manager_is_there || fail "no window manager"
}
window_manager_is_there() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 0x; }

# Puts the Hangul of the texts on keys of their own. xdotool would otherwise change the keyboard between two
# syllables, which a busy program notices too late.
lay_out_keyboard() { # TEXT...
  local syllable code=150
  for syllable in $(grep -oP '\p{Hangul}' <<<"$*" | sort -u); do
    printf 'keycode %d = U%04X\n' "$code" "'$syllable"
    code=$((code + 1))
  done >"$out/keyboard.txt"
  [ "$code" -le 250 ] || fail "more syllables than keys"
  xmodmap "$out/keyboard.txt"
}

pictures_taken=0
picture() { # NAME
  sleep 0.4
  pictures_taken=$((pictures_taken + 1))
  import -window root "$out/$(printf %02d "$pictures_taken")-$1.png"
}

# Windows go by the words in their title.
window_id() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1 | grep .; }
no_window() { ! window_id "$1"; }
wait_for() { # TITLE
  until_true 15 window_id "$1" || { picture missing; fail "no window: $1"; }
  sleep 0.3
}
wait_gone() { until_true 10 no_window "$1" || fail "still there: $1"; }

# Where controls stand, as control-map printed it, by the name of their form.
title_of() {
  case $1 in
    frmSMSMain) echo 'TSMS문자메시지' ;;
    MakeSMSTransport) echo '문자메시지 발송하기' ;;
    dlgSMSCharge) echo '문자메시지 충전' ;;
    dlgSMSSetup) echo '문자메시지 환경설정' ;;
    dlgSMSGroupSelect) echo '주소록' ;;
    dlgSMSGroupMst) echo '그룹 등록' ;;
    dlgSMSGroupSub) echo '구성원 등록' ;;
    MakeSMSExcel) echo '문자메시지 엑셀 가져오기' ;;
  esac
}
click() { # FORM CONTROL [SIDESTEP]
  local where x y
  where=$(awk -F'\t' -v w="$1" -v c="$2" '$1==w && $2==c {print $3, $4; exit}' "$out/controls.tsv")
  [ -n "$where" ] || fail "no control $2 in $1"
  read -r x y <<<"$where"
  xdotool mousemove --window "$(window_id "$(title_of "$1")")" $((x + ${3:-0})) "$y" click 1
  sleep 0.2
}
# With type_by_clipboard=1 Hangul comes by the clipboard: Wine loses syllables of keys that change their meaning.
write() {
  if [ "${type_by_clipboard:-0}" = 1 ] && grep -qP '\p{Hangul}' <<<"$1"; then
    printf '%s' "$1" | xclip -selection clipboard
    key ctrl+v
  else
    xdotool type --delay 40 -- "$1"
    sleep 0.2
  fi
}
key() {
  xdotool key --delay 60 "$@"
  sleep 0.2
}
# Presses Return in a window until it is gone: one that has just come may not have the keys yet.
confirm() { # TITLE
  local tries
  wait_for "$1"
  for tries in 1 2 3 4; do
    key Return
    until_true 3 no_window "$1" && return 0
  done
  picture missing
  fail "still there after $tries presses: $1"
}
