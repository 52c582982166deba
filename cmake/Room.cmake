# A room is a folder below src/ with one library target.
#
#   quillstacks_room(NAME foundation PATH foundation
#                    HEADERS Log.h … SOURCES Log.cpp … [USES room …] [LINK target …] [HIDDEN target …] [OBJECT] [PLAIN] [CORE])
#
# HEADERS are the public ones: they alone can be included from other rooms, as "PATH/Header.h", and each is compiled
# on its own by the target all_verify_interface_header_sets. USES names lower rooms, LINK libraries that the public
# headers need, HIDDEN libraries that only the sources need. OBJECT rooms are linked object by object: the choice
# between the real desktop and the tests' one. PLAIN rooms take no Qt precompiled header, CORE ones that of
# QtCore alone.
#
# Other rooms see a folder of links that holds nothing but the public headers; so no room can include what a room
# that it does not use has to offer, or another room's private parts.

# One precompiled header for all rooms with widgets and one for those without: making one takes as long as compiling
# several files.
foreach(kind IN ITEMS "" _core)
  set(target quillstacks_precompiled${kind})
  add_library(${target} OBJECT "${CMAKE_CURRENT_LIST_DIR}/Precompiled.cpp")
  set_target_properties(${target} PROPERTIES AUTOMOC OFF)
  target_precompile_headers(${target} PRIVATE "${CMAKE_CURRENT_LIST_DIR}/Precompiled.h")
endforeach()
target_link_libraries(quillstacks_precompiled PRIVATE quillstacks_compiler Qt6::Widgets)
target_link_libraries(quillstacks_precompiled_core PRIVATE quillstacks_compiler Qt6::Core)

function(quillstacks_room)
  cmake_parse_arguments(ROOM "OBJECT;PLAIN;CORE" "NAME;PATH" "HEADERS;SOURCES;USES;LINK;HIDDEN" ${ARGN})
  set(target quillstacks_${ROOM_NAME})
  set(shown "${PROJECT_BINARY_DIR}/rooms/${ROOM_NAME}")
  set(here "${CMAKE_CURRENT_SOURCE_DIR}")
  set(links "")
  foreach(header IN LISTS ROOM_HEADERS)
    set(link "${shown}/${ROOM_PATH}/${header}")
    get_filename_component(folder "${link}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    if(NOT EXISTS "${link}")
      file(CREATE_LINK "${here}/${header}" "${link}" SYMBOLIC)
    endif()
    list(APPEND links "${link}")
  endforeach()

  set(lower "")
  foreach(room IN LISTS ROOM_USES)
    list(APPEND lower quillstacks_${room})
  endforeach()

  if(NOT ROOM_SOURCES)
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE ${lower} ${ROOM_LINK})
  else()
    if(ROOM_OBJECT)
      add_library(${target} OBJECT ${ROOM_SOURCES} ${ROOM_HEADERS})
    else()
      add_library(${target} STATIC ${ROOM_SOURCES} ${ROOM_HEADERS})
    endif()
    target_include_directories(${target} PRIVATE "${here}" "${shown}")
    target_link_libraries(${target} PUBLIC ${lower} ${ROOM_LINK} PRIVATE quillstacks_compiler ${ROOM_HIDDEN})
    if(ROOM_CORE)
      target_precompile_headers(${target} REUSE_FROM quillstacks_precompiled_core)
    elseif(NOT ROOM_PLAIN)
      target_precompile_headers(${target} REUSE_FROM quillstacks_precompiled)
    endif()
  endif()
  add_library(Quillstacks::${ROOM_NAME} ALIAS ${target})
  if(links)
    target_sources(${target} INTERFACE FILE_SET HEADERS BASE_DIRS "${shown}" FILES ${links})
    set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  endif()
endfunction()
