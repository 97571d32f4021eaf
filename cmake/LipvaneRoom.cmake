# One library a room. The folder of the caller is the room; its headers are reached as
# "lipvane/ROOM/NAME.h" through links that only this target and those linking it see, so that an
# include of a room that is not linked does not compile.
#
#   lipvane_room(NAME LINKS target... HEADERS file... SOURCES file...)
function(lipvane_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" "LINKS;HEADERS;SOURCES")
  add_library(lipvane_${name} STATIC ${room_SOURCES} ${room_HEADERS})
  add_library(lipvane::${name} ALIAS lipvane_${name})
  set_target_properties(lipvane_${name} PROPERTIES EXPORT_NAME ${name} LINKER_LANGUAGE CXX
                                                   POSITION_INDEPENDENT_CODE ON)
  target_compile_features(lipvane_${name} PUBLIC cxx_std_17)
  target_link_libraries(lipvane_${name} PUBLIC ${room_LINKS}
                                        PRIVATE $<BUILD_INTERFACE:lipvane_warnings>)

  cmake_path(GET CMAKE_CURRENT_FUNCTION_LIST_DIR PARENT_PATH tree)
  file(RELATIVE_PATH folder ${tree} ${CMAKE_CURRENT_SOURCE_DIR})
  set(root ${PROJECT_BINARY_DIR}/rooms/${name})
  file(REMOVE_RECURSE ${root})
  file(MAKE_DIRECTORY ${root}/${folder})
  foreach(header IN LISTS room_HEADERS)
    cmake_path(GET header PARENT_PATH subfolder)
    file(MAKE_DIRECTORY ${root}/${folder}/${subfolder})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${root}/${folder}/${header}
         RESULT failed SYMBOLIC)
    if(failed)  # no links here (Windows without the right to make them): all rooms are in sight
      set(root ${tree})
      break()
    endif()
  endforeach()
  target_include_directories(lipvane_${name} PUBLIC $<BUILD_INTERFACE:${root}>
                                                    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  set_target_properties(lipvane_${name} PROPERTIES LIPVANE_FOLDER "${folder}"
                                                   LIPVANE_HEADERS "${room_HEADERS}")
  set_property(GLOBAL APPEND PROPERTY LIPVANE_ROOMS ${name})
endfunction()

# A folder through which no more of the tree is seen than the folders that are named; the tree itself
# where there are no links.
function(lipvane_view out name)
  cmake_path(GET CMAKE_CURRENT_FUNCTION_LIST_DIR PARENT_PATH tree)
  set(view ${PROJECT_BINARY_DIR}/rooms/${name})
  file(MAKE_DIRECTORY ${view})
  foreach(folder IN LISTS ARGN)
    file(CREATE_LINK ${tree}/${folder} ${view}/${folder} RESULT failed SYMBOLIC)
    if(failed)
      set(view ${tree})
      break()
    endif()
  endforeach()
  set(${out} ${view} PARENT_SCOPE)
endfunction()

# The target check_headers (not part of "all") compiles each header of each room alone, with no more
# in sight than the room links.
function(lipvane_header_check)
  add_custom_target(check_headers)
  get_property(rooms GLOBAL PROPERTY LIPVANE_ROOMS)
  foreach(room IN LISTS rooms)
    get_target_property(folder lipvane_${room} LIPVANE_FOLDER)
    get_target_property(headers lipvane_${room} LIPVANE_HEADERS)
    set(sources)
    foreach(header IN LISTS headers)
      set(source ${PROJECT_BINARY_DIR}/header_check/${folder}/${header}.cc)
      file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@folder@/@header@\"\n" @ONLY)
      list(APPEND sources ${source})
    endforeach()
    if(sources)
      add_library(check_headers_${room} OBJECT EXCLUDE_FROM_ALL ${sources})
      target_link_libraries(check_headers_${room} PRIVATE lipvane_${room} lipvane_warnings)
      add_dependencies(check_headers check_headers_${room})
    endif()
  endforeach()
endfunction()
