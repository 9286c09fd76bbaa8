# cmake -DKESTRA=.../kestra -DSCRIPT=diesel.scr -DWORK=<dir> -P diesel_script.cmake
# The staged program with the real module: the generator-capacity dialog driven by a script,
# its transcript and the report it writes.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
execute_process(COMMAND ${KESTRA} --script ${SCRIPT} --report-dir ${WORK}
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT err STREQUAL "")
  message(FATAL_ERROR "kestra --script ended with ${rc}: ${err}")
endif()

set(want_before "[dialog] 柴油发电机组容量计算
213 = 计算书 [disabled]
219 = 2.206
213 = 计算书
219 = 735.294
218 = 500.00
221 = 300.000
221 = 300.000
216 = 800.000
216 = 500
219 = 735.294
[report] ")
set(want_after "[closed] 柴油发电机组容量计算 Cancel\n")
string(LENGTH "${want_before}" n)
string(SUBSTRING "${out}" 0 ${n} got_before)
if(NOT got_before STREQUAL want_before)
  message(FATAL_ERROR "transcript: expected to begin with [${want_before}], got [${out}]")
endif()
string(SUBSTRING "${out}" ${n} -1 rest)
string(FIND "${rest}" "\n" eol)
string(SUBSTRING "${rest}" 0 ${eol} report)
math(EXPR eol "${eol} + 1")
string(SUBSTRING "${rest}" ${eol} -1 got_after)
if(NOT got_after STREQUAL want_after)
  message(FATAL_ERROR "transcript: expected to end with [${want_after}], got [${out}]")
endif()
if(NOT report MATCHES "^${WORK}/柴油发电机组容量计算 [0-9-]+ [0-9]+\\.docx$" OR NOT EXISTS "${report}")
  message(FATAL_ERROR "no report written at [${report}]")
endif()
