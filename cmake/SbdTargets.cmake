# One folder is one target. Sources are globbed, so that a new file needs no change here
# (docs/decisions/0003-globbed-sources-constexpr-tables.md).

function(sbd_add_folders)
    foreach(folder IN LISTS ARGN)
        if(EXISTS "${PROJECT_SOURCE_DIR}/${folder}/CMakeLists.txt")
            add_subdirectory("${PROJECT_SOURCE_DIR}/${folder}")
        endif()
    endforeach()
endfunction()

# sbd_glob(<out> [EXCLUDE <regex>...]): the sources and headers of the current folder, without its subfolders.
function(sbd_glob out)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "EXCLUDE")
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    foreach(pattern IN LISTS arg_EXCLUDE)
        list(FILTER found EXCLUDE REGEX "/${pattern}$")
    endforeach()
    set(${out} "${found}" PARENT_SCOPE)
endfunction()

# sbd_library(<folder> [QT <component>...] [LINKS <target>...] [EXCLUDE <regex>...])
# The static library sbd_<folder>; headers are included from the root: #include "<folder>/file.h".
# A folder without a .cpp is an INTERFACE library. A link to a folder that does not exist yet is left out.
function(sbd_library folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "QT;LINKS;EXCLUDE")
    set(target sbd_${folder})
    set(links "")
    foreach(link IN LISTS arg_LINKS)
        if(NOT link MATCHES "^sbd_" OR TARGET ${link})
            list(APPEND links ${link})
        endif()
    endforeach()
    list(TRANSFORM arg_QT PREPEND "Qt6::" OUTPUT_VARIABLE qt_links)

    sbd_glob(files EXCLUDE ${arg_EXCLUDE})
    set(units "${files}")
    list(FILTER units INCLUDE REGEX "\\.cpp$")
    if(units)
        add_library(${target} STATIC ${files})
        set(scope PUBLIC)
        target_link_libraries(${target} PRIVATE sbd_flags)
        if("Widgets" IN_LIST arg_QT)
            sbd_precompiled(${target} widgets Qt6::Widgets)
        elseif(NOT arg_QT)
            sbd_precompiled(${target} core)
        endif()
    else()
        add_library(${target} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_include_directories(${target} ${scope} "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${target} ${scope} ${links} ${qt_links})
    if(arg_QT)
        if(units)
            sbd_qt_target(${target})
        endif()
        sbd_resources(${folder})
    endif()
endfunction()

# Qt's generators and the rule that text never changes its encoding silently.
function(sbd_qt_target target)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    sbd_qt_definitions(${target})
    sbd_moc_anew_for_new_files(${target})
endfunction()

function(sbd_qt_definitions target)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
endfunction()

# CMake 3.25 does not run moc again when the list of files alone has changed, and a class in a new header would
# have no meta object. So a changed list takes moc's time stamp away.
function(sbd_moc_anew_for_new_files target)
    get_target_property(files ${target} SOURCES)
    set(kept "${CMAKE_CURRENT_BINARY_DIR}/${target}.files")
    set(before "")
    if(EXISTS "${kept}")
        file(READ "${kept}" before)
    endif()
    if(NOT files STREQUAL before)
        file(WRITE "${kept}" "${files}")
        file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp")
    endif()
endfunction()

# Every <folder>/*.qrc. The objects go straight to the programs that link the library: inside an
# archive nothing refers to them and the linker would drop them.
function(sbd_resources folder)
    file(GLOB resources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.qrc")
    if(resources)
        add_library(sbd_${folder}_resources OBJECT ${resources})
        # A Qt that was made without zstd, as the one for Windows, cannot unpack what rcc packs with it.
        set_target_properties(sbd_${folder}_resources PROPERTIES
            AUTORCC ON AUTORCC_OPTIONS --no-zstd LINKER_LANGUAGE CXX)
        target_link_libraries(sbd_${folder} INTERFACE $<TARGET_OBJECTS:sbd_${folder}_resources>)
    endif()
endfunction()

# sbd_executable(<name> SOURCES <file>... LINKS <target>... [QT])
function(sbd_executable name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;LINKS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE sbd_flags ${arg_LINKS})
    if(arg_QT)
        sbd_qt_target(${name})
    endif()
endfunction()
