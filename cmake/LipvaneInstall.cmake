# What other projects get: the command line, the engine and the formats with their headers, and the
# CMake package lipvane. It holds no absolute path, so the installed folder may be moved.
include(CMakePackageConfigHelpers)

# Of text, which formats are built on, only the headers that theirs include.
set(LIPVANE_PACKAGE_ROOMS text engine formats)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/lipvane)

foreach(room IN LISTS LIPVANE_PACKAGE_ROOMS)
  install(TARGETS lipvane_${room} EXPORT lipvaneTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  get_target_property(folder lipvane_${room} LIPVANE_FOLDER)
  get_target_property(headers lipvane_${room} LIPVANE_HEADERS)
  if(room STREQUAL "text")
    set(headers ${LIPVANE_PUBLIC_TEXT_HEADERS})
  endif()
  list(TRANSFORM headers PREPEND ${PROJECT_SOURCE_DIR}/${folder}/)
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder} COMPONENT development)
endforeach()

if(TARGET lipvane)
  install(TARGETS lipvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endif()

install(EXPORT lipvaneTargets NAMESPACE lipvane:: DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/lipvaneConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/package/lipvaneConfig.cmake
                              INSTALL_DESTINATION ${package_dir}
                              NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/lipvaneConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/lipvaneConfig.cmake
              ${PROJECT_BINARY_DIR}/package/lipvaneConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DATADIR}/licenses/lipvane COMPONENT runtime)
