# What is tested is optimised; what tests it need not be, and inline functions that both use are then taken from either.
add_library(strutwright_test_options INTERFACE)
target_compile_options(strutwright_test_options INTERFACE $<$<CONFIG:Release>:-O0>)

# strutwright_test(NAME [SHARDS N] SOURCES ... USES ...)
#
# The test program of one layer: it links that layer, what lies below it and the stand-ins, and nothing above.
# Tests run in a random order, whose seed stands in the output, so that none comes to depend on another.
# SHARDS: how many processes share a program that takes long: NAME_1, NAME_2 and so on.
function(strutwright_test NAME)
  cmake_parse_arguments(ARG "" "SHARDS" "SOURCES;USES" ${ARGN})
  add_executable(test_${NAME} ${ARG_SOURCES})
  precompile_headers_later(test_${NAME})
  set_target_properties(test_${NAME} PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
  target_link_libraries(test_${NAME} PRIVATE strutwright_compiler strutwright_test_options ${ARG_USES} GTest::gmock
                                             GTest::gtest_main)
  if(TARGET strutwright_${NAME})
    # All of the layer, also what no test calls: a call to a floor that the tests do not use finds nothing to link with.
    set_property(TARGET test_${NAME} PROPERTY LINK_LIBRARY_OVERRIDE WHOLE_ARCHIVE,strutwright_${NAME})
  endif()
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
