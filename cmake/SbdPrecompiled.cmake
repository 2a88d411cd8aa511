# Precompiled headers. Most of a file's time goes into reading the same headers; a build from nothing takes half as long
# with them. Daily work does without: there every file has to name what it includes, or it does not compile.
option(SBD_PRECOMPILED "Precompile the headers that most files read" OFF)

set(SBD_HEADERS_core
    <algorithm> <array> <charconv> <chrono> <filesystem> <functional> <map> <memory> <optional> <set> <span> <string>
    <string_view> <vector>)
set(SBD_HEADERS_core_tests ${SBD_HEADERS_core} <gmock/gmock.h> <gtest/gtest.h>)
set(SBD_HEADERS_widgets
    ${SBD_HEADERS_core} <QApplication> <QDialog> <QDir> <QFile> <QLabel> <QMenu> <QPainter> <QString> <QTimer>)
set(SBD_HEADERS_widgets_tests ${SBD_HEADERS_widgets} <QSignalSpy> <QTemporaryDir> <QTest>)

# sbd_precompiled(<target> <kind> [<target that brings the kind's headers>...]): the headers of one of the kinds above. One
# target holds them for all others: some 100 MB each with sanitizers, which forty targets need not have twice.
function(sbd_precompiled target kind)
    if(NOT SBD_PRECOMPILED)
        return()
    endif()
    set(carrier sbd_headers_${kind})
    if(NOT TARGET ${carrier})
        set(source "${PROJECT_BINARY_DIR}/${carrier}.cpp")
        if(NOT EXISTS "${source}")
            file(WRITE "${source}" "")
        endif()
        add_library(${carrier} OBJECT "${source}")
        target_link_libraries(${carrier} PRIVATE sbd_flags ${ARGN})
        if(kind MATCHES "^widgets")
            sbd_qt_definitions(${carrier})
        endif()
        target_precompile_headers(${carrier} PRIVATE ${SBD_HEADERS_${kind}})
    endif()
    target_precompile_headers(${target} REUSE_FROM ${carrier})
endfunction()
