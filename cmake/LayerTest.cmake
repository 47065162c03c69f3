# GoogleTest and GoogleMock take longer to read than our tests: compiled once for all test programs.
add_library(strutwright_test_headers OBJECT ${PROJECT_SOURCE_DIR}/tests/fake/TestHeaders.cpp)
target_link_libraries(strutwright_test_headers PRIVATE strutwright_compiler GTest::gmock)
# Qt asks for position-independent code, and these headers are taken only where all programs are compiled alike.
target_compile_options(strutwright_test_headers PRIVATE -fPIC)
target_precompile_headers(strutwright_test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h> <filesystem> <fstream>
                          <functional> <regex> <sstream> <string> <vector>)

# strutwright_test(NAME [SHARDS N] SOURCES ... USES ...)
#
# The test program of one layer: it links that layer, what lies below it and the stand-ins, and nothing above.
# Tests run in a random order, whose seed stands in the output, so that none comes to depend on another.
# SHARDS: how many processes share a program that takes long: NAME_1, NAME_2 and so on.
function(strutwright_test NAME)
  cmake_parse_arguments(ARG "" "SHARDS" "SOURCES;USES" ${ARGN})
  add_executable(test_${NAME} ${ARG_SOURCES})
  target_precompile_headers(test_${NAME} REUSE_FROM strutwright_test_headers)
  target_compile_options(test_${NAME} PRIVATE -fPIC)
  target_link_libraries(test_${NAME} PRIVATE strutwright_compiler ${ARG_USES} GTest::gmock GTest::gtest_main)
  set(LEAKS LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0)
  if(NOT ARG_SHARDS)
    add_test(NAME ${NAME} COMMAND test_${NAME} --gtest_shuffle)
    set_tests_properties(${NAME} PROPERTIES TIMEOUT 1200 ENVIRONMENT ${LEAKS})
    return()
  endif()
  foreach(SHARD RANGE 1 ${ARG_SHARDS})
    math(EXPR INDEX "${SHARD} - 1")
    add_test(NAME ${NAME}_${SHARD} COMMAND test_${NAME} --gtest_shuffle)
    set_tests_properties(${NAME}_${SHARD} PROPERTIES TIMEOUT 1200
      ENVIRONMENT "${LEAKS};GTEST_TOTAL_SHARDS=${ARG_SHARDS};GTEST_SHARD_INDEX=${INDEX}")
  endforeach()
endfunction()
