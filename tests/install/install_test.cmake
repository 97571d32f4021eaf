# Installs the build, moves the installed folder, and builds and runs consumer/ against it there.
cmake_minimum_required(VERSION 3.21)

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${text}")
  endif()
  set(output "${text}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
run("The installation" ${CMAKE_COMMAND} --install ${BUILD} --config "${CONFIG}"
    --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${WORK}/moved)

file(GLOB_RECURSE package ${WORK}/moved/*.cmake)
if(NOT package)
  message(FATAL_ERROR "No CMake package was installed")
endif()
foreach(file IN LISTS package)
  file(READ ${file} text)
  foreach(folder ${BUILD} ${SOURCE} ${WORK})
    # Where a path may begin: a tree at /lipvane is not meant by cmake/lipvane/.
    foreach(before "\"" " " ":" "=" ">" "\;")
      string(FIND "${text}" "${before}${folder}/" at)
      if(NOT at EQUAL -1)
        message(FATAL_ERROR "${file} names the folder ${folder}")
      endif()
    endforeach()
  endforeach()
endforeach()

set(flags)
if(SANITIZE)
  set(flags "-fsanitize=address,undefined")
endif()
file(COPY ${CMAKE_CURRENT_LIST_DIR}/consumer DESTINATION ${WORK})
run("Configuring the consumer" ${CMAKE_COMMAND} -S ${WORK}/consumer -B ${WORK}/build
    -G ${GENERATOR} "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${COMPILER}"
    "-DCMAKE_CXX_FLAGS=${flags}" "-DCMAKE_PREFIX_PATH=${WORK}/moved"
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
run("Building the consumer" ${CMAKE_COMMAND} --build ${WORK}/build --config "${CONFIG}")
run("The consumer" ${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/build -C "${CONFIG}"
    --output-on-failure --no-tests=error)

if(COMMAND_LINE)
  run("The installed command line" ${WORK}/moved/bin/lipvane --version)
  string(FIND "${output}" "${VERSION}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "lipvane --version does not say ${VERSION}:\n${output}")
  endif()
endif()
