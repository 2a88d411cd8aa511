# libxlsxwriter as the target XlsxWriter::XlsxWriter. On Windows it is a static library, made by
# packaging/windows/libraries.sh, and brings zlib along.
find_path(XLSXWRITER_INCLUDE_DIR xlsxwriter.h)
find_library(XLSXWRITER_LIBRARY xlsxwriter)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(XlsxWriter REQUIRED_VARS XLSXWRITER_LIBRARY XLSXWRITER_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "It writes spreadsheets (Debian: libxlsxwriter-dev, or scripts/setup.sh app)")
mark_as_advanced(XLSXWRITER_INCLUDE_DIR XLSXWRITER_LIBRARY)

if(XlsxWriter_FOUND AND NOT TARGET XlsxWriter::XlsxWriter)
    add_library(XlsxWriter::XlsxWriter UNKNOWN IMPORTED)
    set_target_properties(XlsxWriter::XlsxWriter PROPERTIES
        IMPORTED_LOCATION "${XLSXWRITER_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${XLSXWRITER_INCLUDE_DIR}")
    if(WIN32)
        target_link_libraries(XlsxWriter::XlsxWriter INTERFACE ZLIB::ZLIB)
    endif()
endif()
