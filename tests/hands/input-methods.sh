# Sourced by run: the Korean input methods, as they come but for the mode that they begin in, which is Hangul.
# shellcheck shell=bash

start_input_method() { # METHOD
  case $1 in
    fcitx5) start_fcitx5 ;;
    ibus) start_ibus ;;
  esac
}

start_fcitx5() {
  mkdir -p "$HOME/.config/fcitx5"
  cat >"$HOME/.config/fcitx5/profile" <<'INI'
[Groups/0]
Name=Default
Default Layout=us
DefaultIM=hangul
[Groups/0/Items/0]
Name=keyboard-us
[Groups/0/Items/1]
Name=hangul
[GroupOrder]
0=Default
INI
  printf '[Behavior]\nActiveByDefault=True\n' >"$HOME/.config/fcitx5/config"
  export QT_IM_MODULE=fcitx XMODIFIERS=@im=fcitx
  in_background "$out/fcitx5.log" fcitx5 --disable=wayland,waylandim,notifications,kimpanel,notificationitem
  until_true 20 fcitx5_is_there || fail "fcitx5 did not start"
}

# Asked of the bus: a question to fcitx5 itself would have the bus start a second one.
fcitx5_is_there() {
  dbus-send --print-reply --dest=org.freedesktop.DBus / org.freedesktop.DBus.NameHasOwner \
    string:org.fcitx.Fcitx5 | grep -q 'boolean true'
}

start_ibus() {
  # In a file, which the engine reads as well, in place of a service of the desktop.
  export GSETTINGS_BACKEND=keyfile
  gsettings set org.freedesktop.ibus.engine.hangul initial-input-mode hangul
  gsettings set org.freedesktop.ibus.engine.hangul off-keys ''
  gsettings set org.freedesktop.ibus.general preload-engines "['hangul']"
  gsettings set org.freedesktop.ibus.general engines-order "['hangul']"
  export QT_IM_MODULE=ibus XMODIFIERS=@im=ibus
  in_background "$out/ibus.log" ibus-daemon --panel=disable --verbose
  until_true 20 ibus_engine_is_set || fail "ibus did not start its engine for Hangul"
}
ibus_engine_is_set() { ibus engine hangul && [ "$(ibus engine)" = hangul ]; }
