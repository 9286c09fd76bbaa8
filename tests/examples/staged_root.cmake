# cmake -DROOT=<staged root> -DLISTING=<file> -DMODE=record|check -P staged_root.cmake
# record: lists the files of <root>/Kestra (name, size, time); check: fails when they differ.
file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE ${ROOT} ${ROOT}/Kestra/*)
list(SORT files)
set(now "")
foreach(f ${files})
  file(SIZE ${ROOT}/${f} size)
  file(TIMESTAMP ${ROOT}/${f} stamp "%Y-%m-%dT%H:%M:%S" UTC)
  string(APPEND now "${f} ${size} ${stamp}\n")
endforeach()
if(MODE STREQUAL "record")
  file(WRITE ${LISTING} "${now}")
  return()
endif()
file(READ ${LISTING} before)
if(NOT now STREQUAL before)
  message(FATAL_ERROR "the tests changed the parameter files of the staged root ${ROOT}/Kestra:\n"
                      "before:\n${before}after:\n${now}")
endif()
