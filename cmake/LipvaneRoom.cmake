# One library a room. The folder of the caller is the room; its headers are reached as
# "lipvane/ROOM/NAME.h" through links that only this target and those linking it see, so that an
# include of a room that is not linked does not compile.
#
#   lipvane_room(NAME LINKS target... HEADERS file... SOURCES file...)
function(lipvane_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" "LINKS;HEADERS;SOURCES")
  add_library(lipvane_${name} STATIC ${room_SOURCES} ${room_HEADERS})
  add_library(lipvane::${name} ALIAS lipvane_${name})
  set_target_properties(lipvane_${name} PROPERTIES EXPORT_NAME ${name} POSITION_INDEPENDENT_CODE ON)
  target_compile_features(lipvane_${name} PUBLIC cxx_std_17)
  target_link_libraries(lipvane_${name} PUBLIC ${room_LINKS} PRIVATE $<BUILD_INTERFACE:lipvane_warnings>)

  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  set(root ${PROJECT_BINARY_DIR}/rooms/${name})
  file(REMOVE_RECURSE ${root})
  file(MAKE_DIRECTORY ${root}/${folder})
  foreach(header IN LISTS room_HEADERS)
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${root}/${folder}/${header}
         RESULT failed SYMBOLIC)
    if(failed)  # no links here (Windows without the right to make them): all rooms are in sight
      set(root ${PROJECT_SOURCE_DIR})
      break()
    endif()
  endforeach()
  target_include_directories(lipvane_${name} PUBLIC $<BUILD_INTERFACE:${root}>
                                                    $<INSTALL_INTERFACE:include>)
  set_property(TARGET lipvane_${name} PROPERTY LIPVANE_HEADERS ${room_HEADERS})
endfunction()
