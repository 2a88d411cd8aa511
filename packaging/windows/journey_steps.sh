# The steps of journey.sh.

# take WHAT STEP: a step, with the time that it took.
take() {
    local begin=$SECONDS
    step=$1
    "$2"
    printf '%3d s  %s\n' $((SECONDS - begin)) "$1"
}

# --- Wine --------------------------------------------------------------------------------------------

# A Japanese Windows: bytes are CP932, and Japanese has a face. The windows of its programs come on $DISPLAY.
make_prefix() {
    export WINEPREFIX=$out/prefix
    unset DISPLAY QT_PLUGIN_PATH QT_QPA_PLATFORM WINEPATH
    [[ -d $out/locale ]] || { mkdir "$out/locale" && localedef -i ja_JP -f UTF-8 "$out/locale/ja_JP.UTF-8"; }
    japanese=(env LOCPATH="$out/locale" LC_ALL=ja_JP.UTF-8)
    end_wine
    rm -rf "$WINEPREFIX"
    "${japanese[@]}" "$here/wine.sh" cmd /c exit
    # What wine.sh sets too, but for the path to the DLLs: here they lie beside the program.
    export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='
    wine=/usr/lib/wine/wine64
    [[ -x $wine ]] || wine=$(command -v wine64 || command -v wine)
    fonts_of_a_japanese_windows >"$out/fonts.reg"
    win regedit /S "$(windows_path "$out/fonts.reg")"
    end_wine # its desktop has no screen yet
}

fonts_of_a_japanese_windows() {
    printf '\xff\xfe'
    {
        echo 'Windows Registry Editor Version 5.00'
        echo '[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]'
        printf '"%s"="IPAPGothic"\n' 'MS UI Gothic' 'MS PGothic' 'MS Shell Dlg' 'MS Shell Dlg 2' 'Tahoma' 'Segoe UI'
        printf '"%s"="IPAGothic"\n' 'MS Gothic' 'ＭＳ ゴシック'
    } | sed 's/$/\r/' | iconv -f utf-8 -t utf-16le
}

win() { timeout 60 "${japanese[@]}" "$wine" "$@"; }
tool() { win "$app/sbdtool.exe" "$@"; }
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

wine_server() {
    local server=/usr/lib/wine/wineserver
    [[ -x $server ]] || server=$(command -v wineserver)
    "$server" "$@"
}
end_wine() { wine_server -k 2>/dev/null || true; }

end_of_journey() {
    local code=$?
    if [[ $code -ne 0 ]]; then
        echo "failed: ${step:-}" >&2
        [[ -z ${DISPLAY:-} ]] || picture failed || true
    fi
    trap - EXIT
    end_wine
    stop_desktop
    exit $code
}

stage() {
    rm -rf "$out/道路橋 設計" "$projects" "$out"/長い*
    mkdir -p "$app" "$projects"
    cp "$build/app/sbdstation.exe" "$build/tools/sbdtool.exe" "$build"/tests/engines/*.exe "$app"
    cp "$kit"/qt/bin/Qt6{Core,Gui,Network,PrintSupport,Widgets}.dll "$kit"/libraries/bin/*.dll "$app"
    mkdir "$app/plugins" "$app/translations"
    cp -r "$kit"/qt/plugins/{platforms,styles} "$app/plugins"
    cp /usr/share/qt6/translations/qtbase_ja.qm "$app/translations"
    printf '%s\r\n' '[Paths]' 'Prefix = .' 'Plugins = plugins' 'Translations = translations' >"$app/qt.conf"
    cp "$root/examples/plate4/plate4.sbd" "$project"
    cp "$root/examples/plate4/plate4.abd" "$base.abd"
    cp "$root/examples/single1/single1.sbd" "$other"
}

# start PROJECT...: the program, in the background; its process is $station.
start() {
    local paths=() path
    for path in "$@"; do
        paths+=("$(windows_path "$path")")
    done
    "${japanese[@]}" "$wine" "$app/sbdstation.exe" "${paths[@]}" </dev/null >>"$out/station.log" 2>&1 &
    station=$!
}

# --- the window --------------------------------------------------------------------------------------

# The pane of pages and the pane of cells in a window of 1280 x 960.
pane=(326 72 930 430)
cells=(326 510 930 420)

maximised() { xprop -id "$(xdotool getactivewindow)" _NET_WM_STATE | grep -q MAXIMIZED_VERT; }

start_with_project() {
    start "$project"
    wait_active 'KELD section - ?三径間 鈑桁橋.sbd?' 60
    wait_until 5 'a window that fills the screen' maximised
    settle
    picture 01-start
}

# in_tree KEY COUNT: so many rows up or down in the tree; the focus stays there. (A number that is typed in the tree leads
# to its block too, but not on a machine that is too busy to take it as one word.)
in_tree() {
    local i=0 moves=()
    while [[ $((i++)) -lt $2 ]]; do
        moves+=("$1")
    done
    keys "${moves[@]}"
    settle
}
# From the tree to the first cell.
to_cells() {
    keys F6 ctrl+Home
    settle
}

is_modified() { [[ $(active_title) == *'*]' ]]; }
is_unmodified() { [[ $(active_title) == *'.sbd]' ]]; }

# The focus is in the tree at first.
edit_cells() {
    keys F6 ctrl+Home Right
    text 'BRIDGE 7'
    keys Return
    wait_until 5 'a title with a mark, since the project has changed' is_modified
    keys ctrl+z
    wait_until 5 'a title without the mark, since the change is undone' is_unmodified
    keys Up
    text 'BRIDGE 8'
    keys Return
    wait_until 5 'a title with a mark' is_modified
    settle
    picture 02-option-block

    keys shift+F6
    in_tree Down 12 # 313
    to_cells
    keys Down Right Right Right Right Right
    text 145
    keys Return
    # Five cells of row 2, from the first to the last, to row 3. The focus stays where a selection begins.
    keys Up Left shift+Right shift+Right shift+Right shift+Right ctrl+c
    keys Down ctrl+v
    settle
    picture 02-table-block
}

# lines_changed OLD NEW: the lines of NEW that differ, as UTF-8.
lines_changed() { { diff "$1" "$2" || true; } | LC_ALL=C sed -n 's/^> //p' | iconv -f cp932 -t utf-8; }

# expect_lines OLD NEW TEXT: the lines that differ are those of TEXT, and there are as many as before.
expect_lines() {
    local got
    got=$(lines_changed "$1" "$2")
    [[ $got == "$3" ]] || fail "in $2 the lines"$'\n'"$3"$'\n'"but it has"$'\n'"$got"
    [[ $(wc -l <"$1") -eq $(wc -l <"$2") ]] || fail "as many lines in $2 as before"
}

saved() { ! cmp -s "$1" "$2"; }
has_only() { [[ $(ls -A "$1") == "$2" ]]; }

title_line=$'TITLE:BRIDGE 8\r'
stiffener_lines=$'  G1        G4        S1        C1        I桁     145 10  3  等間隔\r
  G1        G4        C1        C2        I桁     145 10  3  等間隔\r'

save_project() {
    cp "$project" "$out/before.sbd"
    keys ctrl+s
    wait_until 10 'a file that is written' saved "$out/before.sbd" "$project"
    wait_active "KELD section - ?$(windows_path "$project" | sed 's/\\/\\\\/g')?"
    expect_lines "$out/before.sbd" "$project" "$title_line"$'\n'"$stiffener_lines"
    has_only "$projects" "$(printf '%s\n' 三径間\ 鈑桁橋.abd 三径間\ 鈑桁橋.sbd 単純桁.sbd)" ||
        fail "no other files beside the project, but there are: $(ls -A "$projects")"
    picture 03-saved
}

is_as_before() { cmp -s "$out/before.sbd" "$project"; }

filled_lines=$'  G1        G4        C2        C3        I桁     145 9  2  等間隔\r
  G1        G4        C3        C4        I桁     145 9  2  等間隔\r'

# In the grid of 313: one key fills four rows from the first of them, another lets the columns of names go. Undo brings the
# file back as it was.
fill_by_key() {
    cp "$project" "$out/before.sbd"
    keys ctrl+Home Down Right Right Right Right Right
    keys shift+Down shift+Down shift+Down ctrl+d ctrl+s
    wait_until 10 'a file that is written' saved "$out/before.sbd" "$project"
    wait_until 5 'a title without the mark' is_unmodified
    expect_lines "$out/before.sbd" "$project" "$filled_lines"
    keys ctrl+shift+k
    settle
    picture 03-filled
    keys ctrl+z
    wait_until 5 'a title with a mark' is_modified
    keys ctrl+s
    wait_until 10 'the file as it was' is_as_before
    wait_until 5 'a title without the mark' is_unmodified
}

keep_others_out() {
    cp "$project" "$out/before.sbd"
    ! tool rewrite "$(windows_path "$other")" "$(windows_path "$project")" >"$out/write.log" 2>&1 ||
        fail 'another program that is kept from writing'
    ! win cmd /c copy /y "$(windows_path "$other")" "$(windows_path "$project")" >>"$out/write.log" 2>&1 ||
        fail 'a copy over the project to fail'
    ! win cmd /c del "$(windows_path "$project")" >>"$out/write.log" 2>&1 || [[ -f $project ]] ||
        fail 'a project that is not deleted'
    cmp "$out/before.sbd" "$project" || fail 'a project that is as it was'
    tool dump "$(windows_path "$project")" >"$out/read.json" || fail 'another program that may read'
    grep -q 'BRIDGE 8' "$out/read.json" || fail 'the title, as another program reads it'
}

# engine_does LINES: what the engine of the tests shall do.
engine_does() { printf '%s\n' "$@" | iconv -t cp932 >"$base.engine"; }

report_is_there() { [[ -s ${base}_計算結果/三径間\ 鈑桁橋.CHK ]]; }
# red_pixels: how many there are in the pane of pages.
red_pixels() {
    import -silent -window root -crop "${pane[2]}x${pane[3]}+${pane[0]}+${pane[1]}" +repage miff:- |
        convert - -fuzz 40% -fill black +opaque '#ff0000' -fuzz 0 -fill white +opaque black -format '%[fx:int(mean.r*w*h)]' info:
}

run_engine() {
    engine_does args 'sleep 3000' 'value DONOT_DESIGN_CROSS YES' 'chk *** 主桁断面計算 終了 ***' 'chk Error = 0'
    keys ctrl+Home Down Right Right Right Right Right
    text 150
    keys Return
    wait_until 5 'a title with a mark' is_modified
    keys alt+a
    settle
    picture 05-run-menu
    keys Return
    wait_active 'KELD section'
    settle
    picture 05-run-question
    keys Return
    wait_until 20 'an engine that has started' test -f "$base.args"
    wait_until 5 'a window that tells of the run' is_shown 'KELD section'
    wait_until 5 'the console of the engine' is_shown '*HOLM4_W_GIRDER_SECTION.exe'
    out_of_the_way '*HOLM4_W_GIRDER_SECTION.exe'
    sleep 1
    picture 05-run-wait
    wait_until 30 'a report' report_is_there
    wait_until 30 'no engine any more' has_windows 1
    to_front 'KELD section - ?*三径間 鈑桁橋.sbd?' # the console of the engine had the keys
    diff <(tr -d '\r' <"$base.args") <(printf '%s\nRUN\n' "$(windows_path "$project")") ||
        fail 'the path and RUN as the arguments of the engine'
    settle
    picture 05-run-after
    # The window has what the engine wrote, and writes it again.
    cp "$project" "$out/engine.sbd"
    keys shift+F6
    in_tree Up 12 # 301
    to_cells
    keys Right
    text 'BRIDGE 9'
    keys Return ctrl+s
    wait_until 10 'a file that is written' saved "$out/engine.sbd" "$project"
    expect_lines "$out/engine.sbd" "$project" $'TITLE:BRIDGE 9\r'
    LC_ALL=C grep -q '^  DONOT_DESIGN_CROSS .*YES' "$project" || fail 'the value of the engine in the saved file'
    settle
    picture 05-run-value
    keys shift+F6
    in_tree Up 5 # 255
    picture 05-report
    [[ $(red_pixels) -gt 300 ]] || fail 'a report in red on the page of 255'
    in_tree Down 5
    to_cells
}

run_cross() {
    rm "$base.args"
    engine_does args
    keys alt+a Down Down Down Return
    wait_until 20 'an engine that has started' test -s "$base.args"
    wait_until 30 'no engine any more' has_windows 1
    to_front 'KELD section - ?*三径間 鈑桁橋.sbd?'
    diff <(tr -d '\r' <"$base.args") <(windows_path "$project"; echo) || fail 'the path as the only argument of the engine'
    settle
}

is_gone() { ! kill -0 "$1" 2>/dev/null; }
# expect_end PROCESS CODE
expect_end() {
    local code=0
    wait_until 30 'the end of a program' is_gone "$1"
    wait "$1" || code=$?
    [[ $code -eq $2 ]] || fail "exit code $2, not $code"
}

start_again() {
    local first=$station
    xdotool getactivewindow windowminimize
    start "$other"
    expect_end "$station" 0
    wait_active 'KELD section - ?単純桁.sbd?'
    has_windows 1 || fail 'one window for both projects'
    settle
    picture 06-second-project
    keys ctrl+F6
    wait_active 'KELD section - ?*三径間 鈑桁橋.sbd?'
    station=$first
}

# The first one closes, and the next one is started in the midst of it: one window with the project is what stays.
start_while_closing() {
    local delays=(0 50 100 150 200 250 300 350 400 500) delay last
    if $quick; then
        delays=(0 150 350)
    fi
    for delay in "${delays[@]}"; do
        last=$station
        keys alt+F4
        sleep "0.$(printf %03d "$delay")"
        start "$project"
        wait_until 30 "an end of the first one ($delay ms)" is_gone "$last"
        wait "$last" || fail "exit code 0 of the first one ($delay ms), not $?"
        wait_active 'KELD section - ?三径間 鈑桁橋.sbd?' 30
        has_windows 1 || fail "one window ($delay ms)"
        ! is_gone "$station" || fail "a program that stays ($delay ms)"
        sleep 0.5
    done
    settle
    picture 06-after-ten-starts
}

open_held() {
    cp "$other" "$projects/他で使用中.sbd"
    echo 'hold 60000' >"$projects/他で使用中.engine"
    win "$app/HOLM4_W_GIRDER_SECTION.exe" "$(windows_path "$projects/他で使用中.sbd")" ||
        fail 'another program to take the file'
    local first=$station
    start "$projects/他で使用中.sbd"
    expect_end "$station" 0
    station=$first
    wait_active 'KELD section'
    settle
    picture 07-held
    keys alt+n
    wait_active 'KELD section - ?三径間 鈑桁橋.sbd?'
    has_windows 1 || fail 'no window of the project that is held'
}

# The first one closes while the next one hands it its project: the next one takes over, or the first one has opened it.
start_while_closing_at_once() {
    local delay first
    for delay in 0 0.05 0.1 0.15 0.2 0.3; do
        first=$station
        start "$other"
        sleep "$delay"
        keys alt+F4
        wait_until 30 "one program less ($delay s)" one_is_gone "$first" "$station"
        sleep 0.5
        wait_until 30 "a project that is opened, not lost ($delay s)" opened_or_seen "$first" "$station"
        if is_gone "$station" && is_gone "$first"; then
            start "$project"
            wait_active 'KELD section - ?三径間 鈑桁橋.sbd?' 30
        else
            is_gone "$first" || station=$first
            to_front 'KELD section - ?単純桁.sbd?'
        fi
    done
    start_project_alone
}

one_is_gone() { is_gone "$1" || is_gone "$2"; }
opened_or_seen() {
    is_shown 'KELD section - ?単純桁.sbd?' && return
    is_gone "$1" && is_gone "$2" && [[ $(last_project) == *単純桁.sbd* ]]
}
# The list of recent projects begins with it.
last_project() { registry 'Recent File List' | sed -n 's/.*REG_MULTI_SZ *//p' | cut -d '\' -f 1; }
registry() { win reg query "HKCU\\Software\\KELD\\KELD section\\$1" 2>/dev/null | iconv -f cp932 -t utf-8; }

# Whatever is there closes, and the project is opened anew.
start_project_alone() {
    settle
    keys alt+F4
    wait_until 30 'an end' is_gone "$station"
    start "$project"
    wait_active 'KELD section - ?三径間 鈑桁橋.sbd?' 30
    settle
}

# The focus is in the tree.
save_read_only() {
    keys F6 ctrl+Home Right
    text 'BRIDGE 10'
    keys Return
    wait_until 5 'a title with a mark' is_modified
    chmod a-w "$project"
    cp "$project" "$out/before.sbd"
    keys ctrl+s
    wait_active 'KELD section'
    settle
    picture 08-read-only
    keys Return
    wait_until 5 'a project that is still not saved' is_modified
    cmp "$out/before.sbd" "$project" || fail 'a file that is as it was'
    chmod u+w "$project"
    keys ctrl+s
    wait_until 10 'a file that is written' saved "$out/before.sbd" "$project"
    wait_until 5 'a title without the mark' is_unmodified
    expect_lines "$out/before.sbd" "$project" $'TITLE:BRIDGE 10\r'
}

use_long_path() {
    local folder=$out i long first=$station
    for i in 1 2 3 4 5 6; do
        folder+="/長い名前のフォルダ${i}_東名高速道路改良工事_上部工詳細設計業務委託_鋼連続鈑桁橋"
    done
    mkdir -p "$folder"
    long="$folder/三径間 鈑桁橋 長いパス.sbd"
    cp "$root/examples/plate4/plate4.sbd" "$long"
    [[ $(windows_path "$long" | wc -m) -gt 260 ]] || fail 'a path of more than 260 characters'
    start "$long"
    expect_end "$station" 0
    station=$first
    wait_active 'KELD section - ?三径間 鈑桁橋 長いパス.sbd?'
    settle
    keys F6 ctrl+Home Right
    text 'LONG PATH'
    keys Return ctrl+s
    wait_until 10 'a file that is written' saved "$root/examples/plate4/plate4.sbd" "$long"
    expect_lines "$root/examples/plate4/plate4.sbd" "$long" $'TITLE:LONG PATH\r'
    settle
    picture 09-long-path
    keys ctrl+w
    wait_active 'KELD section - ?*三径間 鈑桁橋.sbd?'
    start "$long"
    expect_end "$station" 0
    station=$first
    wait_active 'KELD section - ?三径間 鈑桁橋 長いパス.sbd?'
    settle
    picture 09-long-path-again
    keys ctrl+w
    wait_active 'KELD section - ?*三径間 鈑桁橋.sbd?'
}

# The recovery copies in the user's folder.
recovery_copies() { find "$WINEPREFIX/drive_c/users" -path '*/recovery/*.sbd' 2>/dev/null || true; }
has_recovery_copy() { [[ -n $(recovery_copies) ]]; }
has_no_recovery_copy() { [[ -z $(recovery_copies) ]]; }

# A sign-out as Windows makes it: all windows are asked whether the session may end, then they are told that it does. The
# first time the user thinks better of it.
sign_out() {
    click 1000 $((cells[1] + 38)) # the title, row 1 of 301
    text 'SIGNED OUT'
    keys Return
    wait_until 5 'a title with a mark' is_modified
    cp "$project" "$out/before.sbd"
    win wineboot --end-session >"$out/sign-out.log" 2>&1 </dev/null &
    local session=$!
    to_front '変更の保存' # the system soon asks over it whether to wait any longer
    picture 10-sign-out
    has_recovery_copy || fail 'a recovery copy that stands before the question'
    cmp "$out/before.sbd" "$project" || fail 'a file that is as it was, as long as nobody has answered'
    keys Escape
    wait_until 30 'an end of the sign-out that was given up' is_gone "$session"
    to_front 'KELD section - ?*三径間 鈑桁橋.sbd??' # with the mark of a change
    wait_until 5 'a project that is not saved, in a program that stays' is_modified
    ! is_gone "$station" || fail 'a program that stays'
    settle

    win wineboot --end-session >>"$out/sign-out.log" 2>&1 </dev/null &
    session=$!
    to_front '変更の保存'
    keys Return # saves
    wait_until 30 'the end of the program' is_gone "$station"
    wait "$station" || true # the system does not wait for an end of its own
    wait_until 30 'the end of the session' is_gone "$session"
    expect_lines "$out/before.sbd" "$project" $'TITLE:SIGNED OUT\r'
    has_no_recovery_copy || fail 'no recovery copy of what was saved'
    # What the program has left behind, locks with its number among it, is in nobody's way.
    start "$project"
    wait_active 'KELD section - ?三径間 鈑桁橋.sbd?' 60
    settle
}

# picture_size FILE: width x height.
picture_size() { identify -format '%wx%h' "$1"; }
is_written() { [[ -s $1 ]]; }

# save_picture EXTENSION KEY...: the keys choose the kind of file.
save_picture() {
    local file=$projects/figure.$1
    keys alt+f g
    wait_active '図を保存'
    sleep 0.5
    keys ctrl+a
    text figure
    sleep 0.3
    [[ $# -eq 1 ]] || keys "${@:2}"
    sleep 0.3
    picture "10-save-$1"
    keys Return
    wait_until 10 "a picture $file" is_written "$file"
    wait_until 10 'the end of the dialog' has_windows 1
    to_front 'KELD section - ?*三径間 鈑桁橋.sbd?'
}

use_help_pane() {
    # Two cells of 301: a page for each.
    local before after
    settle
    click 1000 "$((cells[1] + 100))"
    settle
    picture 10-page-1
    before=$(pixels "${pane[@]}")
    click 1000 "$((cells[1] + 280))"
    settle
    picture 10-page-2
    after=$(pixels "${pane[@]}")
    [[ $before != "$after" ]] || fail 'another page for another cell'

    keys F1
    sleep 0.3
    text 'UC-GRID'
    keys Return
    settle
    picture 10-search
    keys Down ctrl+m
    settle
    picture 10-search-jump

    keys alt+f v
    wait_active '印刷プレビュー'
    settle
    picture 10-preview
    keys Escape
    wait_active 'KELD section - ?*三径間 鈑桁橋.sbd?'

    save_picture png
    save_picture svg Tab Down # the second kind of file
    [[ $(picture_size "$projects/figure.png") == [1-9][0-9][0-9]*x[1-9]* ]] || fail 'a picture that can be read'
    grep -q '</svg>' "$projects/figure.svg" || fail 'a whole drawing'
}

# stations: the processes of the program in this prefix.
stations() {
    local process
    for process in /proc/[0-9]*; do
        if grep -qzxF "WINEPREFIX=$WINEPREFIX" "$process/environ" && grep -qaF 'sbdstation.exe' "$process/cmdline"; then
            basename "$process"
        fi
    done 2>/dev/null
}
no_stations() { [[ -z $(stations) ]]; }

# A key that comes while a window is still being put up can be lost under Wine.
give_up_question() {
    ! is_shown '変更の保存' || { to_front '変更の保存'; keys Escape; settle; false; }
}

close_all() {
    # The sizes of the panes are kept by a command, that of the window by the end.
    keys alt+s
    settle
    picture 11-settings-menu
    keys Down Down Down Return
    settle
    click 1000 $((cells[1] + 38)) # the title, row 1 of 301
    text 'BRIDGE 11'
    keys Return
    wait_until 5 'a title with a mark' is_modified
    cp "$project" "$out/before.sbd"
    keys alt+F4
    wait_active '変更の保存'
    settle
    picture 11-question
    wait_until 10 'the question given up' give_up_question
    wait_active 'KELD section - ?*三径間 鈑桁橋.sbd[*]]'
    keys alt+F4
    wait_active '変更の保存'
    keys alt+n
    expect_end "$station" 0
    has_windows 0 || fail 'no window'
    wait_until 5 'no process of the program' no_stations
    cmp "$out/before.sbd" "$project" || fail 'a file without what was not to be saved'
    registry 'Window Size' >"$out/registry.txt"
    local key
    for key in Frame LeftWindow UpWindow MidWindow; do
        grep -q "$key  *REG_" "$out/registry.txt" || fail "$key in the registry"
    done
    # Nothing holds the project any more.
    tool rewrite "$(windows_path "$project")" "$(windows_path "$project")" >>"$out/write.log" 2>&1 ||
        fail 'another program that may write'
    ls -A "$projects" >"$out/files.txt"
    ! grep -q '^\.' "$out/files.txt" || fail 'no hidden files beside the projects'
    ! find "$WINEPREFIX/drive_c/users" -path '*/sbdstation/recovery/*' -type f | grep . ||
        fail 'no recovery copies'
}
