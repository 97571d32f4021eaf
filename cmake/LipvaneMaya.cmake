# Maya's headers and libraries, and what a plug-in for it is compiled and linked with.

# Finds the host in the folder that holds include/maya, and sets for the caller
#   MAYA_INCLUDE_DIR
#   MAYA_RELEASE     2024, or 6.0 before releases had years
#   MAYA_LIBRARIES   what is linked; empty when the host resolves its symbols itself
function(lipvane_find_maya devkit)
  cmake_path(ABSOLUTE_PATH devkit BASE_DIRECTORY ${CMAKE_BINARY_DIR} NORMALIZE)
  string(REGEX REPLACE "(.)/$" "\\1" devkit "${devkit}")
  cmake_path(APPEND devkit include OUTPUT_VARIABLE include)
  if(NOT EXISTS ${include}/maya/MTypes.h)
    set(hint)
    foreach(around .. ../.. devkit devkitBase Maya.app/Contents)
      cmake_path(ABSOLUTE_PATH around BASE_DIRECTORY "${devkit}" NORMALIZE OUTPUT_VARIABLE other)
      string(REGEX REPLACE "(.)/$" "\\1" other "${other}")
      if(EXISTS ${other}/include/maya/MTypes.h)
        set(hint " Did you mean ${other}?")
      endif()
    endforeach()
    message(FATAL_ERROR "MAYA_DEVKIT: there is no include/maya/MTypes.h in ${devkit}. It must be the "
                        "folder of Maya's devkit, or of Maya where that has the headers.${hint}")
  endif()

  if(devkit STREQUAL "${PROJECT_SOURCE_DIR}/tests/maya_standin")
    message(FATAL_ERROR "MAYA_DEVKIT: ${devkit} is the stand-in of this project's own tests. A "
                        "plug-in that is built with it loads into no Maya.")
  endif()

  file(STRINGS ${include}/maya/MTypes.h line
       REGEX "^[ \t]*#[ \t]*define[ \t]+MAYA_API_VERSION[ \t]+[0-9]+" LIMIT_COUNT 1)
  string(REGEX MATCH "VERSION[ \t]+([0-9]+)" line "${line}")
  set(api "${CMAKE_MATCH_1}")
  # 20240200 is 2024.2, 201602 is 2016 and 600 is 6.0.
  if(api MATCHES "^20[0-9][0-9][0-9][0-9]")
    string(SUBSTRING ${api} 0 4 release)
  elseif(api MATCHES "^([0-9])([0-9])[0-9]$")
    set(release "${CMAKE_MATCH_1}.${CMAKE_MATCH_2}")
  else()
    message(FATAL_ERROR "MAYA_DEVKIT: ${include}/maya/MTypes.h does not say which release it "
                        "belongs to (it has no line #define MAYA_API_VERSION with a number).")
  endif()

  set(libraries)
  set(missing)
  foreach(name OpenMaya OpenMayaAnim Foundation)
    find_library(maya_${name} ${name} NO_CACHE NO_DEFAULT_PATH
                 PATHS ${devkit}/lib ${devkit}/Maya.app/Contents/MacOS ${devkit}/MacOS)
    if(maya_${name})
      list(APPEND libraries ${maya_${name}})
    else()
      list(APPEND missing ${name})
    endif()
  endforeach()
  if(missing)
    if(WIN32)
      message(FATAL_ERROR "MAYA_DEVKIT: there is no ${missing} in ${devkit}/lib. On Windows a "
                          "plug-in cannot be linked without the host's import libraries.")
    endif()
    set(libraries)  # all or none: the host has them loaded
  endif()

  set(MAYA_INCLUDE_DIR ${include} PARENT_SCOPE)
  set(MAYA_RELEASE ${release} PARENT_SCOPE)
  set(MAYA_LIBRARIES "${libraries}" PARENT_SCOPE)
  set(note)
  if(release VERSION_LESS 2022)
    set(note " (older than 2022, the oldest release that is meant to work)")
  endif()
  message(STATUS "Maya ${release}, API ${api}, in ${devkit}${note}")
endfunction()

# The host's headers for a target, with the definitions that they ask for, and no symbol shown that
# is not marked. Our own code is C++17 whatever a release's is; the headers are known to compile so
# with the compiler's extensions.
function(lipvane_use_maya target)
  target_include_directories(${target} SYSTEM PUBLIC ${MAYA_INCLUDE_DIR})
  if(WIN32)
    # In a debug build the libraries of the rooms would not go together with the third.
    set(definitions NT_PLUGIN _BOOL $<$<NOT:$<CONFIG:Debug>>:_HAS_ITERATOR_DEBUGGING=0> _USRDLL
                    _CRT_SECURE_NO_DEPRECATE)
    if(MAYA_RELEASE VERSION_LESS 2018)
      list(APPEND definitions _SECURE_SCL=0 Bits64_)
    endif()
  elseif(APPLE)
    set(definitions MAC_PLUGIN)
    if(MAYA_RELEASE VERSION_LESS 2018)
      list(APPEND definitions OSMac_ OSMac_MachO_ REQUIRE_IOSTREAM)
    endif()
  else()
    set(definitions _BOOL LINUX)
    if(MAYA_RELEASE VERSION_LESS 2016)
      list(APPEND definitions REQUIRE_IOSTREAM)
    elseif(MAYA_RELEASE VERSION_LESS 2018)
      list(APPEND definitions REQUIRE_IOSTREAM UNIX FUNCPROTO LINUX_64 Bits64_)
    endif()
  endif()
  target_compile_definitions(${target} PUBLIC ${definitions})
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS ON CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# The name, the exported symbols and the libraries of a plug-in file, which is put into a module
# folder: plug-ins/ and beside it the module file. The host passes over modules of other releases
# and platforms.
function(lipvane_plugin_file target module_folder)
  set_target_properties(${target} PROPERTIES
                        OUTPUT_NAME lipvane PREFIX "" DEBUG_POSTFIX ""
                        # The empty expression keeps some generators from adding a folder.
                        LIBRARY_OUTPUT_DIRECTORY ${module_folder}/plug-ins$<0:>)
  target_link_libraries(${target} PRIVATE ${MAYA_LIBRARIES})
  set(symbols ${CMAKE_CURRENT_SOURCE_DIR}/exported_symbols.map)
  if(WIN32)
    set(platform win64)
    set_target_properties(${target} PROPERTIES SUFFIX .mll)
    if(MSVC)
      # The headers' own dllexport would also export decorated names.
      target_compile_definitions(${target} PRIVATE PLUGIN_EXPORT=)
      target_link_options(${target} PRIVATE /export:initializePlugin /export:uninitializePlugin
                                            /export:MApiVersion,DATA)
    endif()
  elseif(APPLE)
    set(platform mac)
    set_target_properties(${target} PROPERTIES SUFFIX .bundle)
    target_link_options(${target} PRIVATE
                        "LINKER:-exported_symbol,__Z16initializePlugin*"
                        "LINKER:-exported_symbol,__Z18uninitializePlugin*"
                        "LINKER:-exported_symbol,_MApiVersion"
                        "LINKER:-undefined,dynamic_lookup")
  else()
    set(platform linux)
    set_target_properties(${target} PROPERTIES SUFFIX .so LINK_DEPENDS ${symbols})
    target_link_options(${target} PRIVATE LINKER:--version-script=${symbols} LINKER:-Bsymbolic
                                          LINKER:--exclude-libs,ALL)
  endif()
  file(CONFIGURE OUTPUT ${module_folder}/lipvane.mod @ONLY CONTENT
       "+ MAYAVERSION:@MAYA_RELEASE@ PLATFORM:@platform@ lipvane @PROJECT_VERSION@ .\n")
endfunction()
