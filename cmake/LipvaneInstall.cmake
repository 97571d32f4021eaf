# What other projects get: the command line, the engine and the formats with their headers, and the
# CMake package lipvane. It holds no absolute path, so the installed folder may be moved.
include(CMakePackageConfigHelpers)

# Headers that no public one includes stay at home, among them all of text.
set(internal_headers
    engine/arrays.h
    engine/interpolation.h
    engine/relative_poses.h
    engine/step_batch.h
    engine/trace.h
    engine/wide/blend_loops.h
    engine/wide/lanes_avx.h
    engine/wide/lanes_plain.h
    engine/wide/lanes_sse2.h
    engine/wide/loops_on.h
    formats/data_lines.h
    formats/expected_lines.h
    formats/file_content.h
    formats/layout.h
    text/byte_search.h
    text/file.h
    text/large_pages.h
    text/numbers.h
    text/pending_file.h
    text/portable_real_conversion.h
    text/powers_of_ten.h
    text/printable.h
    text/real_conversion.h
    text/short_decimal.h
    text/six_digits.h
    text/utf8.h)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/lipvane)

foreach(room text engine formats)
  install(TARGETS lipvane_${room} EXPORT lipvaneTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  get_target_property(headers lipvane_${room} LIPVANE_HEADERS)
  list(TRANSFORM headers PREPEND ${room}/)
  list(REMOVE_ITEM headers ${internal_headers})
  list(TRANSFORM headers PREPEND ${PROJECT_SOURCE_DIR}/lipvane/)
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/lipvane/${room}
          COMPONENT development)
endforeach()

if(TARGET lipvane_cli)
  install(TARGETS lipvane_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endif()

# A module folder, ready for MAYA_MODULE_PATH.
if(TARGET lipvane_plugin_file)
  install(TARGETS lipvane_plugin_file DESTINATION maya/plug-ins COMPONENT plugin)
  install(FILES ${LIPVANE_MODULE_FOLDER}/lipvane.mod DESTINATION maya COMPONENT plugin)
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
