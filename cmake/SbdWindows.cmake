# What Windows shows of a program and asks of it, linked into the program as resources.

set(SBD_WINDOWS_FOLDER "${PROJECT_SOURCE_DIR}/packaging/windows")

# sbd_windows_program(<target> <description> [WINDOW])
# Version information; with WINDOW the icons of the program and of its documents, and the manifest. Nothing on other
# systems.
function(sbd_windows_program target description)
    if(NOT WIN32)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 2 arg "WINDOW" "" "")
    file(STRINGS "${PROJECT_SOURCE_DIR}/LICENSE" copyright REGEX "^Copyright" LIMIT_COUNT 1)
    string(REGEX REPLACE "^Copyright \\(c\\) [0-9-]+ " "" authors "${copyright}")
    set(place "${CMAKE_CURRENT_BINARY_DIR}/windows")
    configure_file("${SBD_WINDOWS_FOLDER}/version.rc.in" "${place}/${target}-version.rc" @ONLY)
    target_sources(${target} PRIVATE "${place}/${target}-version.rc")
    target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp) # the same sources give the same bytes
    if(NOT arg_WINDOW)
        return()
    endif()

    set(program_icon "${place}/sbdstation.ico")
    set(document_icon "${place}/application-x-sbd-project.ico")
    set(manifest "${place}/${target}.manifest")
    sbd_windows_icon("${PROJECT_SOURCE_DIR}/packaging/desktop/sbdstation.svg" "${program_icon}")
    sbd_windows_icon("${PROJECT_SOURCE_DIR}/packaging/desktop/application-x-sbd-project.svg" "${document_icon}")
    configure_file("${SBD_WINDOWS_FOLDER}/sbdstation.manifest.in" "${manifest}" @ONLY)
    configure_file("${SBD_WINDOWS_FOLDER}/window.rc.in" "${place}/${target}-window.rc" @ONLY)
    set_source_files_properties("${place}/${target}-window.rc" PROPERTIES
        OBJECT_DEPENDS "${program_icon};${document_icon};${manifest}")
    target_sources(${target} PRIVATE "${place}/${target}-window.rc")
endfunction()

# sbd_windows_icon(<drawing.svg> <icon.ico>): the sides that Windows asks for at 100 to 250 % of the screen's scale; the
# largest one packed as PNG, as Windows expects it.
function(sbd_windows_icon drawing icon)
    find_program(RSVG_CONVERT rsvg-convert REQUIRED)
    find_program(SBD_ICOTOOL icotool REQUIRED DOC "Packs pictures into an .ico; Debian's package icoutils")
    mark_as_advanced(SBD_ICOTOOL)
    get_filename_component(name "${icon}" NAME_WE)
    get_filename_component(place "${icon}" DIRECTORY)
    set(commands COMMAND "${CMAKE_COMMAND}" -E make_directory "${place}/${name}")
    set(pictures "")
    foreach(side IN ITEMS 16 20 24 32 40 48 64 128 256)
        set(picture "${place}/${name}/${side}.png")
        list(APPEND commands COMMAND "${RSVG_CONVERT}" -w ${side} -h ${side} -o "${picture}" "${drawing}")
        if(side EQUAL 256)
            set(picture "--raw=${picture}")
        endif()
        list(APPEND pictures "${picture}")
    endforeach()
    add_custom_command(OUTPUT "${icon}" ${commands}
        COMMAND "${SBD_ICOTOOL}" --create --bit-depth=32 "--output=${icon}" ${pictures}
        DEPENDS "${drawing}" COMMENT "Icon ${name}" VERBATIM)
endfunction()
