# Installs the build, moves the installed folder, and builds and runs consumer/ and examples/embed/
# against it there.
cmake_minimum_required(VERSION 3.21)

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

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
function(build_project name folder)
  file(COPY ${folder}/ DESTINATION ${WORK}/${name})
  run("Configuring ${name}" ${CMAKE_COMMAND} -S ${WORK}/${name} -B ${WORK}/${name}/build
      -G ${GENERATOR} "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${COMPILER}"
      "-DCMAKE_CXX_FLAGS=${flags}" "-DCMAKE_PREFIX_PATH=${WORK}/moved"
      # The empty expression keeps some generators from adding a folder for the configuration.
      "-DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${WORK}/${name}/bin$<0:>"
      -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
  run("Building ${name}" ${CMAKE_COMMAND} --build ${WORK}/${name}/build --config "${CONFIG}")
endfunction()

build_project(consumer ${CMAKE_CURRENT_LIST_DIR}/consumer)
run("The consumer" ${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/consumer/build -C "${CONFIG}"
    --output-on-failure --no-tests=error)
build_project(embed ${SOURCE}/examples/embed)

if(COMMAND_LINE)
  run("The installed command line" ${WORK}/moved/bin/lipvane --version)
  string(FIND "${output}" "${VERSION}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "lipvane --version does not say ${VERSION}:\n${output}")
  endif()

  file(STRINGS ${SOURCE}/examples/bones.txt bones)
  run("The export of a face" ${WORK}/moved/bin/lipvane run ${SOURCE}/examples/face_poses.ma -e
      "demBonesExportPoses -bl \"${bones}\" -hb head -lbp \"${WORK}/face.lbp\" -np 20")
  set(play ${WORK}/embed/bin/play_bone ${WORK}/face.lbp ${SOURCE}/examples/hello.ltf)
  run("play_bone" ${play} jaw)
  string(REGEX MATCHALL "[^\n]+" frames "${output}")
  list(LENGTH frames frame_count)
  list(TRANSFORM frames REPLACE "^[^ ]+ +" "")  # the seconds
  list(REMOVE_DUPLICATES frames)
  list(LENGTH frames place_count)
  if(NOT frame_count EQUAL 91 OR place_count LESS 50)
    message(FATAL_ERROR "A jaw that speaks for three seconds has ${frame_count} frames (91 are due) "
                        "in ${place_count} places (50 at least):\n${output}")
  endif()
  execute_process(COMMAND ${play} jow RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE text)
  if(NOT result EQUAL 1 OR NOT text MATCHES "no bone jow")
    message(FATAL_ERROR "play_bone takes a bone that is not there (${result}):\n${text}")
  endif()
endif()
