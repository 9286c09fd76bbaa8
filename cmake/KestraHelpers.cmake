# kestra_test(NAME SOURCES... LIBS ...): one GoogleTest executable, registered with CTest.
function(kestra_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    KESTRA_SOURCE_DIR="${CMAKE_SOURCE_DIR}" KESTRA_ROOT_DIR="${KESTRA_ROOT}")
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES ENVIRONMENT "KESTRA_ROOT_DIR=${KESTRA_ROOT}" FIXTURES_REQUIRED kestra_staged_root)
endfunction()

# kestra_bench(NAME SOURCES... LIBS ...): one Google Benchmark executable (not a test).
function(kestra_bench name)
  cmake_parse_arguments(B "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${B_SOURCES})
  target_link_libraries(${name} PRIVATE ${B_LIBS} benchmark::benchmark benchmark::benchmark_main)
  target_compile_definitions(${name} PRIVATE KESTRA_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
endfunction()
