#!/usr/bin/env bash
# Sets up what is missing, builds the program and starts it.
#   ./run.sh [project.sbd]                          opens a project, by default the plate girder example
#   ./run.sh --screenshot out.png [project.sbd]     draws the window into a picture, without a screen
# Without a screen (no DISPLAY, no WAYLAND_DISPLAY) the window is served by VNC on 127.0.0.1, port SBD_VNC_PORT or 5900.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$root/build/release

"$root/scripts/setup.sh" app
if [[ ! -f $build/build.ninja ]]; then
    (cd "$root" && cmake --preset release)
fi

# build TARGET...: quiet where there is nothing to do.
build() {
    ninja -C "$build" "$@" | sed -e '/ no work to do\.$/d' -e '/Entering directory/d' -e '/Re-checking globbed/d'
}
build sbdstation

arguments=("$@")
project_given=no
picture=no
for argument in "$@"; do
    case $argument in
        *.[sS][bB][dD]) project_given=yes ;;
        --screenshot*) picture=yes ;;
    esac
done
if [[ $project_given == no ]]; then
    arguments+=("$root/examples/plate4/plate4.sbd")
fi

if [[ -z ${QT_QPA_PLATFORM:-} ]]; then
    if [[ $picture == yes ]]; then
        export QT_QPA_PLATFORM=offscreen
    elif [[ -z ${DISPLAY:-} && -z ${WAYLAND_DISPLAY:-} ]]; then
        port=${SBD_VNC_PORT:-5900}
        if (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
            echo "Port $port is taken. Choose another one: SBD_VNC_PORT=5901 ./run.sh" >&2
            exit 1
        fi
        build sbd_loopback_only
        export QT_QPA_PLATFORM=vnc:port=$port:size=${SBD_VNC_SIZE:-1920x1080}
        export LD_PRELOAD=$build/scripts/libsbd_loopback_only.so${LD_PRELOAD:+:$LD_PRELOAD}
        cat <<TEXT
No screen here: the window is served by VNC on 127.0.0.1, port $port, for this machine only.
  On this machine:     point a VNC viewer at 127.0.0.1:$port
  From another one:    ssh -L $port:127.0.0.1:$port $(id -un)@$(hostname)
                       and point a VNC viewer there at 127.0.0.1:$port
Ctrl+C here ends the program; what is not saved is lost then.
TEXT
    fi
fi
exec "$build/app/sbdstation" "${arguments[@]}"
