# One test program a folder of tests/, each of its tests known to ctest by name.
#
#   lipvane_test(NAME LINKS target... SOURCES file...)
include(GoogleTest)

# Tests reach each other as "tests/FOLDER/NAME.h", the command line's parts as "cli/NAME.h", and the
# rooms only through what they link.
lipvane_view(LIPVANE_TEST_ROOT of_tests tests cli)

function(lipvane_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LINKS;SOURCES")
  add_executable(${name}_test ${test_SOURCES})
  target_link_libraries(${name}_test PRIVATE ${test_LINKS} lipvane_warnings GTest::gtest_main)
  target_include_directories(${name}_test PRIVATE ${LIPVANE_TEST_ROOT})
  if(NOT MSVC)  # to optimise tests as hard as what they test takes longer than to run them
    target_compile_options(${name}_test PRIVATE $<$<CONFIG:Release>:-O1>
                                                $<$<BOOL:${LIPVANE_SANITIZE}>:-O0>)
  endif()
  set_target_properties(${name}_test PROPERTIES
                        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  gtest_discover_tests(${name}_test NO_PRETTY_VALUES TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 300)
endfunction()
