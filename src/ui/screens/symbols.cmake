# The symbols of the program: symbols.txt names the SVG files of bootstrap-icons, which become one resource in which
# each is found as :/symbols/NAME.svg.
find_path(BOOTSTRAP_ICONS_DIR envelope-fill.svg PATHS /usr/share/bootstrap-icons/svg NO_DEFAULT_PATH REQUIRED)

set(SYMBOL_TABLE ${CMAKE_CURRENT_LIST_DIR}/symbols.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${SYMBOL_TABLE})
file(STRINGS ${SYMBOL_TABLE} SYMBOL_LINES REGEX "^[a-z]")

set(SYMBOL_QRC "<RCC><qresource prefix=\"/symbols\">\n")
foreach(LINE IN LISTS SYMBOL_LINES)
    string(REPLACE " " ";" LINE "${LINE}")
    list(GET LINE 0 SYMBOL)
    list(GET LINE 1 FILE)
    string(APPEND SYMBOL_QRC "<file alias=\"${SYMBOL}.svg\">${BOOTSTRAP_ICONS_DIR}/${FILE}.svg</file>\n")
endforeach()
string(APPEND SYMBOL_QRC "</qresource></RCC>\n")
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/symbols.qrc CONTENT "${SYMBOL_QRC}" @ONLY)

qt_add_resources(SYMBOL_SOURCES ${CMAKE_CURRENT_BINARY_DIR}/symbols.qrc)
target_sources(corvanite_desktop PRIVATE ${SYMBOL_SOURCES})
