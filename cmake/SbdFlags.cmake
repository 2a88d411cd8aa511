# How every target of this tree is compiled. Targets take it by linking sbd_flags privately,
# so nothing leaks into the headers of the libraries that we only call.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

# Assertions stay in everything but a release.
set(SBD_OPTIMISATION "-O2 -g" CACHE STRING "Optimisation and debug information of RelWithDebInfo")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "${SBD_OPTIMISATION}")

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(SBD_CCACHE ccache)
    mark_as_advanced(SBD_CCACHE)
    if(SBD_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${SBD_CCACHE}")
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
