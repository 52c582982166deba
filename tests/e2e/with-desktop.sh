#!/usr/bin/env bash
# Runs a command on a desktop of its own and ends with the command's status:
#
#   with-desktop.sh COMMAND [ARGUMENT…]
#
# The desktop is a virtual X server, a session bus, a window manager and the bus for assistive tools, with home, data,
# configuration and runtime folders that are thrown away afterwards. Nothing of the caller's own session shows through,
# so any number of these can run side by side, as any user.
#
#   DESKTOP_WM      the window manager: "openbox --sm-disable" (the default), "xfwm4 --compositor=off", "none"
#   DESKTOP_SCREEN  width x height x depth, by default 1440x900x24
#   DESKTOP_ASSIST  "no" where nobody uses assistive tools: programs are as quick as that makes them, but out of reach
#   DESKTOP_PREFIX  where Quillstacks is installed: its entry and its icons are found, and the bus can start it
set -euo pipefail

folder_setup() {
    folder=$(mktemp -d "${TMPDIR:-/tmp}/quillstacks-desktop.XXXXXX")
    mkdir -m 700 "$folder/home" "$folder/runtime" "$folder/services"
    export HOME="$folder/home" XDG_RUNTIME_DIR="$folder/runtime"
    export XDG_CONFIG_HOME="$HOME/.config" XDG_DATA_HOME="$HOME/.local/share"
    export XDG_CACHE_HOME="$HOME/.cache" XDG_STATE_HOME="$HOME/.local/state"
    mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_STATE_HOME"
}

environment_setup() {
    unset WAYLAND_DISPLAY DISPLAY XAUTHORITY SESSION_MANAGER XDG_CURRENT_DESKTOP DESKTOP_SESSION
    unset DBUS_SESSION_BUS_ADDRESS DBUS_STARTER_ADDRESS DBUS_STARTER_BUS_TYPE
    # With this one set, Qt connects to the assistive bus and never registers there.
    unset AT_SPI_BUS_ADDRESS
    unset DESKTOP_STARTUP_ID XDG_ACTIVATION_TOKEN XMODIFIERS QT_IM_MODULE GTK_IM_MODULE
    unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCREEN_SCALE_FACTORS QT_FONT_DPI
    export XDG_SESSION_TYPE=x11 QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR="${QT_SCALE_FACTOR:-1}"
    export NO_AT_BRIDGE=0 GSETTINGS_BACKEND=memory LC_ALL=C.UTF-8
    unset QT_LINUX_ACCESSIBILITY_ALWAYS_ON
    [ "${DESKTOP_ASSIST:-yes}" = no ] || export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
    if [ -n "${DESKTOP_PREFIX:-}" ]; then
        export PATH="$DESKTOP_PREFIX/bin:$PATH" XDG_DATA_DIRS="$DESKTOP_PREFIX/share:/usr/local/share:/usr/share"
    fi
}

# Starts a part of the desktop, which then dies with this script, whatever ends the script.
start() {
    setpriv --pdeathsig KILL "$@" &
    parts=("$!" "${parts[@]}")
}

# The server picks a free number by itself.
start_display() {
    local number="" pipe
    mkfifo "$folder/display"
    exec {pipe}<>"$folder/display"
    start Xvfb -displayfd "$pipe" -screen 0 "${DESKTOP_SCREEN:-1440x900x24}" -nolisten tcp -noreset 2>"$folder/xvfb.log"
    read -r -t 20 -u "$pipe" number || true
    exec {pipe}>&-
    [ -n "$number" ] || fail "no X server" xvfb.log
    export DISPLAY=":$number"
}

# The bus knows only the services that the desktop needs: a portal or a key ring of the machine stays out of it.
start_bus() {
    local service
    for service in org.a11y.Bus org.xfce.Xfconf; do
        if [ -e "/usr/share/dbus-1/services/$service.service" ]; then
            grep -v '^SystemdService' "/usr/share/dbus-1/services/$service.service" >"$folder/services/$service.service"
        fi
    done
    if [ -n "${DESKTOP_PREFIX:-}" ]; then
        cp "$DESKTOP_PREFIX/share/dbus-1/services/app.Quillstacks.service" "$folder/services/"
    fi
    cat >"$folder/bus.conf" <<CONF
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=$folder/runtime/bus</listen>
  <auth>EXTERNAL</auth>
  <servicedir>$folder/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
CONF
    local address="" pipe
    mkfifo "$folder/address"
    exec {pipe}<>"$folder/address"
    start dbus-daemon --nofork --print-address="$pipe" --config-file="$folder/bus.conf" >"$folder/bus.log" 2>&1
    read -r -t 20 -u "$pipe" address || true
    exec {pipe}>&-
    [ -n "$address" ] || fail "no session bus" bus.log
    export DBUS_SESSION_BUS_ADDRESS="$address"
}

# Asking for the assistive bus starts it; its registry is woken too, so that the first program finds it at once.
start_assistive_bus() {
    local address
    address=$(dbus-send --session --print-reply=literal --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress)
    [ "${DESKTOP_ASSIST:-yes}" != no ] || return 0
    dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.freedesktop.DBus.Properties.Set \
        string:org.a11y.Status string:IsEnabled variant:boolean:true >/dev/null
    dbus-send --bus="${address//[[:space:]]/}" --print-reply --dest=org.a11y.atspi.Registry \
        /org/a11y/atspi/accessible/root org.freedesktop.DBus.Peer.Ping >/dev/null
}

start_window_manager() {
    local command="${DESKTOP_WM:-openbox --sm-disable}"
    [ "$command" != none ] || return 0
    # shellcheck disable=SC2086 # a command with its arguments
    start $command >"$folder/wm.log" 2>&1
    local manager="${parts[0]}" tries=0
    until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
        tries=$((tries + 1))
        if [ "$tries" -gt 200 ] || ! kill -0 "$manager" 2>/dev/null; then
            fail "'$command' doesn't manage windows" wm.log
        fi
        sleep 0.05
    done
}

fail() {
    echo "with-desktop: $1" >&2
    cat "$folder/$2" >&2
    exit 97
}

# shellcheck disable=SC2317 # called by the trap
# The newest part goes first, so that nothing loses the server or the bus under its feet.
end() {
    local part
    for part in "${parts[@]}"; do
        kill "$part" 2>/dev/null || true
        wait "$part" 2>/dev/null || true
    done
    # A service that the bus had started may still be writing.
    rm -rf "$folder" 2>/dev/null || { sleep 0.5; rm -rf "$folder"; }
}

if [ $# -eq 0 ]; then
    sed -n '2,13{s/^# \{0,1\}//;p}' "${BASH_SOURCE[0]}" >&2
    exit 2
fi

parts=()
folder_setup
trap end EXIT
trap 'exit 143' TERM HUP
trap 'exit 130' INT
environment_setup
start_display
start_bus
start_assistive_bus
start_window_manager
start "$@" <&0
status=0
wait "${parts[0]}" || status=$?
exit "$status"
