# A room is one folder and one library, tallyo_<folder>, of all its .cpp files.
#   tallyo_room(NAME [USES room...] [LINKS library...] [WITHOUT file...])
# USES names the rooms below; LINKS names libraries from outside; WITHOUT names files that belong
# to a program (its main) rather than to the library.
function(tallyo_room name)
  cmake_parse_arguments(ROOM "" "" "USES;LINKS;WITHOUT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  foreach(file ${ROOM_WITHOUT})
    list(REMOVE_ITEM sources "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
  endforeach()
  set(library tallyo_${name})
  add_library(${library} STATIC ${sources})
  target_include_directories(${library} PUBLIC "${PROJECT_SOURCE_DIR}")
  foreach(room ${ROOM_USES})
    target_link_libraries(${library} PUBLIC tallyo_${room})
  endforeach()
  target_link_libraries(${library} PRIVATE ${ROOM_LINKS})
endfunction()
