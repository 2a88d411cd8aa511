# The icons of commands: drawn as SVG, carried by the programs as pictures of exact sizes
# (docs/decisions/0011-no-qt-svg.md).

# sbd_icon_masks(<folder> <icon.svg>...)
# Every icon in every size of SBD_ICON_SIZES as the resource :/icons/<name>/<size>.png, linked with the folder's
# library. 16 is the side in menus, 24 in the tool bar, each at 100, 125, 150, 175, 200, 250 and 300 % of the screen's
# scale; 22 is that of the tool bar on some desktops, at 100, 150 and 200 %; 96 is what larger ones are scaled from.
set(SBD_ICON_SIZES 16 20 22 24 28 30 32 33 36 40 42 44 48 60 72 96)
function(sbd_icon_masks folder)
    find_program(RSVG_CONVERT rsvg-convert DOC "Turns SVG into PNG; Debian's package librsvg2-bin")
    if(NOT RSVG_CONVERT)
        message(FATAL_ERROR
            "rsvg-convert is not there. It makes the icons of the tool bar; install it on this machine "
            "(Debian: librsvg2-bin, or scripts/setup.sh app), or say where it is: -DRSVG_CONVERT=/path/to/rsvg-convert")
    endif()
    set(place "${CMAKE_CURRENT_BINARY_DIR}/icons")
    set(entries "")
    foreach(icon IN LISTS ARGN)
        get_filename_component(name "${icon}" NAME_WE)
        set(masks "")
        set(commands COMMAND "${CMAKE_COMMAND}" -E make_directory "${place}/${name}")
        foreach(size IN LISTS SBD_ICON_SIZES)
            set(mask "${place}/${name}/${size}.png")
            list(APPEND masks "${mask}")
            list(APPEND commands COMMAND "${RSVG_CONVERT}" -w ${size} -h ${size} -o "${mask}" "${icon}")
            string(APPEND entries "    <file>${name}/${size}.png</file>\n")
        endforeach()
        add_custom_command(OUTPUT ${masks} ${commands} DEPENDS "${icon}" COMMENT "Icon ${name}" VERBATIM)
    endforeach()
    file(CONFIGURE OUTPUT "${place}/${folder}_icons.qrc" @ONLY
        CONTENT "<RCC>\n  <qresource prefix=\"/icons\">\n@entries@  </qresource>\n</RCC>\n")
    # Not by AUTORCC, which does not know where files that are yet to be made come from.
    qt_add_resources(source "${place}/${folder}_icons.qrc")
    add_library(sbd_${folder}_icons OBJECT ${source})
    target_link_libraries(sbd_${folder} INTERFACE $<TARGET_OBJECTS:sbd_${folder}_icons>)
    string(REPLACE ";" "," sizes "${SBD_ICON_SIZES}")
    target_compile_definitions(sbd_${folder} PRIVATE SBD_ICON_SIZES=${sizes})
endfunction()
