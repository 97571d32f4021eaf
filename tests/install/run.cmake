# run(WHAT COMMAND...): what failed and what it said ends the test; `output` holds what it said.
function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${text}")
  endif()
  set(output "${text}" PARENT_SCOPE)
endfunction()
