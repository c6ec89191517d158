# The pages that show the reports need no building. They are copied beside the databases, where the programs of the
# build folder look for what they are delivered with.
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
add_custom_target(display ALL DEPENDS ${display_copies})

# A page that is gone from the sources is no longer delivered.
file(GLOB former_copies LIST_DIRECTORIES false "${ORVEX_DISPLAY_FOLDER}/*")
foreach(copy IN LISTS former_copies)
  if(NOT copy IN_LIST display_copies)
    file(REMOVE "${copy}")
  endif()
endforeach()

install(FILES ${display_files} DESTINATION share/orvex/display)
