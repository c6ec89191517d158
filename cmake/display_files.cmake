# The pages that show the reports are copied beside the databases, where the programs of the build folder look for what
# they are delivered with. One of their scripts is made: the labels of the reference tables' fields.
file(GLOB display_files LIST_DIRECTORIES false CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/data/display/*")
set(ORVEX_DISPLAY_FOLDER "${CMAKE_BINARY_DIR}/data/display")
file(MAKE_DIRECTORY "${ORVEX_DISPLAY_FOLDER}")

set(display_copies "")
foreach(file IN LISTS display_files)
  get_filename_component(name "${file}" NAME)
  set(copy "${ORVEX_DISPLAY_FOLDER}/${name}")
  add_custom_command(OUTPUT "${copy}"
    COMMAND ${CMAKE_COMMAND} -E copy "${file}" "${copy}"
    DEPENDS "${file}"
    COMMENT "Copying data/display/${name}" VERBATIM)
  list(APPEND display_copies "${copy}")
endforeach()
set(reference_fields "${ORVEX_DISPLAY_FOLDER}/reference_fields.js")
add_custom_command(OUTPUT "${reference_fields}"
  COMMAND make-reference-fields "${reference_fields}"
  DEPENDS make-reference-fields
  COMMENT "Making data/display/reference_fields.js" VERBATIM)
list(APPEND display_copies "${reference_fields}")
add_custom_target(display ALL DEPENDS ${display_copies})

# A page that is gone from the sources is no longer delivered.
file(GLOB former_copies LIST_DIRECTORIES false "${ORVEX_DISPLAY_FOLDER}/*")
foreach(copy IN LISTS former_copies)
  if(NOT copy IN_LIST display_copies)
    file(REMOVE "${copy}")
  endif()
endforeach()

install(FILES ${display_copies} DESTINATION share/orvex/display)
