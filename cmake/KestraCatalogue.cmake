# kestra_add_catalogue(TARGET_NAME SRC_DIR OUT_FILE [KIND line|motor|transformer|reactor])
#
# Builds the SQLite catalogue OUT_FILE from the CSV sources in SRC_DIR (one .csv per table,
# optional tables.txt) with "kestra catalog build" at build time, and when KIND is given
# (also accepted as a fourth plain argument) checks it with "kestra catalog check". The
# check writes a stamp only when it passes, so a failing catalogue fails every build until
# its sources are fixed. Relative paths: SRC_DIR from the current source folder, OUT_FILE
# from the current build folder.
function(kestra_add_catalogue target src_dir out_file)
  cmake_parse_arguments(C "" "KIND" "" ${ARGN})
  if(NOT C_KIND AND C_UNPARSED_ARGUMENTS)
    list(GET C_UNPARSED_ARGUMENTS 0 C_KIND)
  endif()
  get_filename_component(src_dir "${src_dir}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
  get_filename_component(out_file "${out_file}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_BINARY_DIR}")
  get_filename_component(out_dir "${out_file}" DIRECTORY)
  get_filename_component(out_name "${out_file}" NAME)

  # Re-globbed at every build, so a new CSV file or a new tables.txt is noticed.
  file(GLOB sources CONFIGURE_DEPENDS "${src_dir}/*.csv" "${src_dir}/tables.txt")
  if(NOT sources)
    message(FATAL_ERROR "kestra_add_catalogue(${target}): no .csv files in ${src_dir}")
  endif()

  add_custom_command(OUTPUT "${out_file}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${out_dir}"
    COMMAND $<TARGET_FILE:kestra> catalog build "${src_dir}" "${out_file}"
    DEPENDS ${sources} kestra
    COMMENT "Building catalogue ${out_name}"
    VERBATIM)
  set(outputs "${out_file}")
  if(C_KIND)
    set(stamp "${CMAKE_CURRENT_BINARY_DIR}/${target}.checked")
    add_custom_command(OUTPUT "${stamp}"
      COMMAND $<TARGET_FILE:kestra> catalog check "${out_file}" ${C_KIND}
      COMMAND ${CMAKE_COMMAND} -E touch "${stamp}"
      DEPENDS "${out_file}" kestra
      COMMENT "Checking catalogue ${out_name} (${C_KIND})"
      VERBATIM)
    list(APPEND outputs "${stamp}")
  endif()
  add_custom_target(${target} ALL DEPENDS ${outputs})
endfunction()
