#!/usr/bin/env bash
# Sets up what is missing, builds the program and starts it.
#   ./run.sh [project.sbd]                          opens a project, by default the plate girder example
#   ./run.sh --screenshot out.png [project.sbd]     draws the window into a picture, without a screen
# Without a screen (no DISPLAY, no WAYLAND_DISPLAY) the window is served by VNC on 127.0.0.1, port SBD_VNC_PORT or 5900.
# What apt, cmake and the compiler say stands in build/run.log.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$root/build/release
log=$root/build/run.log
mkdir -p "$root/build"
: >"$log"

# Where nobody sees a terminal, a line is written for each tenth; on a terminal one line counts up.
[[ -t 2 ]] && terminal=yes || terminal=no

# quietly WHAT COMMAND...: the command's words go to the log. Its failure is told with the end of the log.
quietly() {
    local what=$1
    shift
    if ! "$@" >>"$log" 2>&1 </dev/null; then
        [[ $terminal == no ]] || printf '\r\033[K' >&2
        {
            echo "$what failed. The end of $log:"
            tail -n 20 "$log" | sed 's/^/    /'
        } >&2
        exit 1
    fi
}

# Reads ninja's lines "[done/all] ..." and tells how far it is; all else is in the log.
progress() {
    local line built all tenth=-1 began=$SECONDS left told=no
    while IFS= read -r line; do
        echo "$line" >>"$log"
        [[ $line =~ ^\[([1-9][0-9]*)/([0-9]+)\] ]] || continue
        built=${BASH_REMATCH[1]} all=${BASH_REMATCH[2]}
        if [[ $told == no ]] && ((all > 20)); then
            echo "Building the program, $all steps. The first time takes some minutes, later ones seconds." >&2
        fi
        told=yes
        left=$(((SECONDS - began) * (all - built) / built))
        if [[ $terminal == yes ]]; then
            printf '\r\033[K    %d of %d files, about %s left' "$built" "$all" "$(duration "$left")" >&2
        elif ((built * 10 / all > tenth)); then
            tenth=$((built * 10 / all))
            echo "    $built of $all files, about $(duration "$left") left" >&2
        fi
    done
    [[ $terminal == no ]] || printf '\r\033[K' >&2
}

duration() {
    if (($1 < 100)); then echo "$1 s"; else echo "$((($1 + 30) / 60)) min"; fi
}

# build TARGET...: says nothing where there is nothing to do.
build() {
    set +o pipefail
    NINJA_STATUS='[%f/%t] ' ninja -C "$build" "$@" 2>&1 </dev/null | progress
    local code=${PIPESTATUS[0]}
    set -o pipefail
    if ((code != 0)); then
        {
            echo "Building failed. The end of $log:"
            tail -n 40 "$log" | sed 's/^/    /'
        } >&2
        exit 1
    fi
}

missing=$("$root/scripts/setup.sh" app --missing)
if [[ -n $missing ]]; then
    echo "Installing $(wc -w <<<"$missing") Debian packages; that takes a minute or two." >&2
    quietly "Installing packages" "$root/scripts/setup.sh" app
fi
if [[ ! -f $build/build.ninja ]]; then
    echo "Setting up the build." >&2
    quietly "Setting up the build" cmake -S "$root" --preset release
fi
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
