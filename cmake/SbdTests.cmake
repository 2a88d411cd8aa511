# Tests mirror the tree: tests/<folder>/*_test.cpp. Other .cpp files beside them are helpers of that folder's tests.

if(BUILD_TESTING)
    find_package(GTest REQUIRED)
    include(GoogleTest)
    if(SBD_WITH_QT)
        find_package(Qt6 6.4 REQUIRED COMPONENTS Core Test)
        # Qt tells each test the folders of this clone, which nobody asks for: another clone would find none in its cache.
        set_property(TARGET Qt6::Test PROPERTY INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)
    endif()
endif()

# What every test may know about its surroundings (tests/surroundings.h).
set(SBD_ENGINE_FOLDER "${PROJECT_BINARY_DIR}/tests/engines")
function(sbd_test_surroundings target)
    if(NOT TARGET sbd_surroundings)
        add_library(sbd_surroundings OBJECT "${PROJECT_SOURCE_DIR}/tests/surroundings.cpp")
        target_include_directories(sbd_surroundings PRIVATE "${PROJECT_SOURCE_DIR}")
        target_link_libraries(sbd_surroundings PRIVATE sbd_flags)
        target_compile_definitions(sbd_surroundings PRIVATE
            TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data"
            EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples"
            ENGINE_FOLDER="${SBD_ENGINE_FOLDER}"
            SBDTOOL="$<TARGET_FILE:sbdtool>")
    endif()
    target_link_libraries(${target} PRIVATE $<TARGET_OBJECTS:sbd_surroundings>)
    if(TARGET sbdtool)
        add_dependencies(${target} sbdtool)
    endif()
endfunction()

# Takes from a list of files the tests of what only Windows has.
function(sbd_drop_windows_tests list)
    if(NOT WIN32)
        list(FILTER ${list} EXCLUDE REGEX "_windows_test\\.cpp$")
        set(${list} "${${list}}" PARENT_SCOPE)
    endif()
endfunction()

# One GoogleTest program for a Qt-free folder.
function(sbd_core_tests folder)
    file(GLOB files CONFIGURE_DEPENDS
        "${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp" "${PROJECT_SOURCE_DIR}/tests/${folder}/*.h")
    sbd_drop_windows_tests(files)
    set(tests "${files}")
    list(FILTER tests INCLUDE REGEX "_test\\.cpp$")
    if(NOT tests OR NOT TARGET sbd_${folder})
        return()
    endif()
    set(target ${folder}_tests)
    sbd_executable(${target} SOURCES ${files} LINKS sbd_${folder} GTest::gmock GTest::gtest_main)
    sbd_precompiled(${target} core_tests GTest::gmock)
    sbd_test_surroundings(${target})
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST TEST_PREFIX "${folder}."
        PROPERTIES TIMEOUT 300 LABELS core)
endfunction()

# What test programs with windows have on Windows in place of an environment.
if(BUILD_TESTING AND SBD_WITH_QT AND WIN32)
    file(TO_CMAKE_PATH "$ENV{SystemRoot}/Fonts" fonts)
    if(CMAKE_CROSSCOMPILING)
        set(fonts Z:/usr/share/fonts/opentype/ipafont-gothic) # Wine has the files of this machine on drive Z
    endif()
    set(SBD_TEST_FONTS "${fonts}" CACHE STRING "Folder with Japanese fonts, as a test program names it")
    mark_as_advanced(SBD_TEST_FONTS)
    add_library(sbd_windows_surroundings OBJECT "${PROJECT_SOURCE_DIR}/tests/windows/surroundings.cpp")
    target_compile_definitions(sbd_windows_surroundings PRIVATE SBD_TEST_FONTS="${SBD_TEST_FONTS}")
    target_link_libraries(sbd_windows_surroundings PRIVATE sbd_flags Qt6::Core)
endif()

# What no test program takes, on a machine that has other work too.
set(most_seconds 300)
if(SBD_SANITIZE)
    set(most_seconds 900)
endif()

# The test's own classes: <name>.moc, which the test includes. CMake's automatic moc takes a second a program, which a
# hundred programs in three builds pay; this one 20 ms.
function(sbd_moc_of_test target file name)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/moc/${target}")
    set(made "${folder}/${name}.moc")
    file(MAKE_DIRECTORY "${folder}")
    set(system "$<IF:$<PLATFORM_ID:Windows>,-DQ_OS_WIN,-DQ_OS_UNIX>") # some classes ask
    add_custom_command(OUTPUT "${made}" COMMAND Qt6::moc ${system} -o "${made}" "${file}" DEPENDS "${file}" VERBATIM)
    target_sources(${target} PRIVATE "${made}")
    target_include_directories(${target} PRIVATE "${folder}")
endfunction()

# One Qt Test program for each file of a folder with windows, on the offscreen platform and with a home of its own.
function(sbd_qt_tests folder)
    set(source_folder "${PROJECT_SOURCE_DIR}/tests/${folder}")
    file(GLOB files CONFIGURE_DEPENDS "${source_folder}/*.cpp" "${source_folder}/*.h")
    sbd_drop_windows_tests(files)
    set(tests "${files}")
    list(FILTER tests INCLUDE REGEX "_test\\.cpp$")
    list(FILTER files EXCLUDE REGEX "_test\\.cpp$")
    if(NOT tests OR NOT TARGET sbd_${folder})
        return()
    endif()
    foreach(file IN LISTS tests)
        get_filename_component(name "${file}" NAME_WE)
        set(target ${folder}_${name})
        # Headers of Qt Test are others where the network is linked, and what is precompiled has to suit all.
        set(links Qt6::Widgets Qt6::Network Qt6::Test)
        sbd_executable(${target} SOURCES ${file} ${files} LINKS sbd_${folder} ${links})
        sbd_qt_definitions(${target})
        sbd_moc_of_test(${target} "${file}" ${name})
        sbd_precompiled(${target} widgets_tests ${links})
        sbd_test_surroundings(${target})
        add_test(NAME ${folder}.${name} COMMAND ${target})
        set(home "${SBD_TEST_HOMES}/${target}")
        set_tests_properties(${folder}.${name} PROPERTIES TIMEOUT ${most_seconds} LABELS qt FIXTURES_REQUIRED fresh_homes)
        if(WIN32)
            target_link_libraries(${target} PRIVATE $<TARGET_OBJECTS:sbd_windows_surroundings>)
        else()
            set_tests_properties(${folder}.${name} PROPERTIES
                ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_DATA_HOME=${home}/data;XDG_CACHE_HOME=${home}/cache;XDG_RUNTIME_DIR=${home}/run;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
        endif()
        set_property(GLOBAL APPEND PROPERTY SBD_TEST_HOME_LIST "${home}")
    endforeach()
endfunction()

# The homes are emptied before the first test that needs one, so that no run sees the settings of the run before.
set(SBD_TEST_HOMES "${PROJECT_BINARY_DIR}/tests/homes")
function(sbd_fresh_homes)
    get_property(homes GLOBAL PROPERTY SBD_TEST_HOME_LIST)
    if(homes)
        add_test(NAME fresh_homes
            COMMAND "${CMAKE_COMMAND}" "-DHOMES=${homes}" -P "${PROJECT_SOURCE_DIR}/cmake/FreshHomes.cmake")
        set_tests_properties(fresh_homes PROPERTIES FIXTURES_SETUP fresh_homes)
    endif()
endfunction()
