# How every target of this tree is compiled. Targets take it by linking sbd_flags privately,
# so nothing leaks into the headers of the libraries that we only call.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

# Assertions stay in everything but a release. Lines and functions for a backtrace are kept, local variables are not: with
# them a build of all test programs took 6.5 GB instead of 2. For an hour in a debugger: -DSBD_OPTIMISATION="-Og -g".
set(SBD_OPTIMISATION "-O2 -g1" CACHE STRING "Optimisation and debug information of RelWithDebInfo")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "${SBD_OPTIMISATION}")

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(SBD_CCACHE ccache)
    mark_as_advanced(SBD_CCACHE)
    if(SBD_CCACHE)
        # A clone elsewhere finds what this one compiled: paths below the source folder count as relative ones. What a
        # precompiled header holds is told by its own contents, so that these and the cache go together.
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}"
            CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
            "${SBD_CCACHE}")
    endif()
endif()

# Debug information and __FILE__ name files from the root of the tree, wherever it stands.
add_compile_options("-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.")
# ccache takes precompiled headers only with this from g++.
if(SBD_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
endif()

# A hundred test programs are linked in half the time. What users start is linked by what the distribution links with.
if(NOT CMAKE_CROSSCOMPILING AND NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    find_program(SBD_MOLD mold)
    mark_as_advanced(SBD_MOLD)
    if(SBD_MOLD)
        add_link_options(-fuse-ld=mold)
    endif()
endif()

add_library(sbd_flags INTERFACE)
target_compile_options(sbd_flags INTERFACE
    # A user's build does not fail on a warning: g++ 12 sees overlaps at -O3 that are none.
    $<$<NOT:$<CONFIG:Release>>:-Werror> -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    # What g++ 12 sees in inlined strings that is not there, at -O1 with the standard library of Windows.
    "$<$<PLATFORM_ID:Windows>:-Wno-error=array-bounds;-Wno-error=restrict;-Wno-error=stringop-overflow>"
    # g++ leaves sign changes out of -Wconversion; both compilers shall ask for the same.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)
target_compile_definitions(sbd_flags INTERFACE
    $<$<NOT:$<CONFIG:Release>>:_GLIBCXX_ASSERTIONS>
    $<$<PLATFORM_ID:Windows>:UNICODE>
    $<$<PLATFORM_ID:Windows>:_UNICODE>
    $<$<PLATFORM_ID:Windows>:NOMINMAX>)

if(SBD_SANITIZE)
    # Directory scope, so that the tests' own main functions are covered too.
    add_compile_options(-fsanitize=${SBD_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${SBD_SANITIZE})
endif()
