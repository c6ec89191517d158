# The help is made from the pages in data/help. It lies beside the databases, where the programs of the build folder look
# for what they are delivered with.
set(ORVEX_HELP_SOURCES "${CMAKE_SOURCE_DIR}/data/help")
set(ORVEX_HELP_FILE "${CMAKE_BINARY_DIR}/data/help/ORVEX40.hlp")

find_program(CMARK cmark-gfm REQUIRED)
# It is in no PATH, but beside Qt's other tools.
get_target_property(moc Qt6::moc LOCATION)
cmake_path(GET moc PARENT_PATH qt_tools)
find_program(QHELPGENERATOR qhelpgenerator HINTS "${qt_tools}" REQUIRED)

file(GLOB help_pages CONFIGURE_DEPENDS "${ORVEX_HELP_SOURCES}/*" "${ORVEX_HELP_SOURCES}/pictures/*")
list(REMOVE_ITEM help_pages "${ORVEX_HELP_SOURCES}/pictures")
add_custom_command(OUTPUT "${ORVEX_HELP_FILE}"
  COMMAND "${CMAKE_SOURCE_DIR}/tools/make_help.sh" "${CMARK}" "${QHELPGENERATOR}"
          "${ORVEX_HELP_SOURCES}" "${CMAKE_BINARY_DIR}/help" "${ORVEX_HELP_FILE}"
  DEPENDS "${CMAKE_SOURCE_DIR}/tools/make_help.sh" ${help_pages}
  COMMENT "Making data/help/ORVEX40.hlp" VERBATIM)
# "help" itself is a name of the build system.
add_custom_target(help-file ALL DEPENDS "${ORVEX_HELP_FILE}")

install(FILES "${ORVEX_HELP_FILE}" DESTINATION share/orvex/help)
