# cmake -DKESTRA=.../kestra -DSRC=<scripts> -DWORK=<dir> -P end_to_end.cmake
# Runs the staged kestra on scripts and checks transcripts and exit codes.
file(MAKE_DIRECTORY ${WORK})

function(expect what got want)
  if(NOT "${got}" STREQUAL "${want}")
    message(FATAL_ERROR "${what}: expected [${want}], got [${got}]")
  endif()
endfunction()

execute_process(COMMAND ${KESTRA} --script ${SRC}/e2e_ok.scr --report-dir ${WORK}
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
expect("exit code of e2e_ok.scr" "${rc}" "0")
expect("transcript of e2e_ok.scr" "${out}" "")
expect("errors of e2e_ok.scr" "${err}" "")

execute_process(COMMAND ${KESTRA} --script ${SRC}/e2e_error.scr
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
expect("exit code of e2e_error.scr" "${rc}" "2")
expect("errors of e2e_error.scr" "${err}" "[error] line 3: no dialog is open for 'click'\n")

execute_process(COMMAND ${KESTRA} --script ${SRC}/no-such-script.scr
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
expect("exit code of a missing script" "${rc}" "2")

execute_process(COMMAND ${KESTRA} --list-commands RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
expect("exit code of --list-commands" "${rc}" "0")
expect("--list-commands" "${out}"
  "OrvelKestra\n  sample 2\n  WGGL 2\n  DYSSCAL 2\n  DJQDCAL 2\n  OrvelDieselContentCal 2\n")
