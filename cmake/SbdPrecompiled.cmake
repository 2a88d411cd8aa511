# Precompiled headers. Most of a file's time goes into reading the same headers; a build from nothing takes half as long
# with them. Daily work does without: there every file has to name what it includes, or it does not compile.
option(SBD_PRECOMPILED "Precompile the headers that most files read" OFF)

set(SBD_STD_HEADERS
    <algorithm> <array> <charconv> <chrono> <filesystem> <functional> <map> <memory> <optional> <set> <span> <string>
    <string_view> <vector>)

# sbd_precompiled(<target> [HEADERS <header>...] [REUSE <target>]): the standard's headers and these, or those that the
# other target has.
function(sbd_precompiled target)
    if(NOT SBD_PRECOMPILED)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "REUSE" "HEADERS")
    if(arg_REUSE)
        target_precompile_headers(${target} REUSE_FROM ${arg_REUSE})
    else()
        target_precompile_headers(${target} PRIVATE ${SBD_STD_HEADERS} ${arg_HEADERS})
    endif()
endfunction()
