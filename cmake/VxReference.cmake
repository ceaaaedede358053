# The target `reference`: the pages about every public class, made from the headers' comments, and the guides. A
# warning fails it. Qt's classes link to Qt's own pages where the tag files of those are installed.
find_package(Doxygen QUIET)
if(DOXYGEN_FOUND)
    find_path(vx_qt_tags qtcore/qtcore.tags PATHS /usr/share/qt5/doc NO_DEFAULT_PATH)
    mark_as_advanced(vx_qt_tags)
    configure_file(docs/reference/Doxyfile.in "${PROJECT_BINARY_DIR}/Doxyfile" @ONLY)
    add_custom_target(reference
        COMMAND "${CMAKE_COMMAND}" -E rm -rf "${PROJECT_BINARY_DIR}/reference"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${PROJECT_BINARY_DIR}/reference"
        COMMAND Doxygen::doxygen "${PROJECT_BINARY_DIR}/Doxyfile"
        # What the guides show and link, where they link it.
        COMMAND "${CMAKE_COMMAND}" -E copy_directory "${PROJECT_SOURCE_DIR}/docs/images"
            "${PROJECT_BINARY_DIR}/reference/html/images"
        COMMAND "${CMAKE_COMMAND}" -E copy_directory "${PROJECT_SOURCE_DIR}/examples"
            "${PROJECT_BINARY_DIR}/reference/examples"
        COMMENT "Making the reference documentation"
        VERBATIM)
endif()
