# strutwright_test(NAME SOURCES ... USES ...)
#
# The test program of one layer: it links that layer, what lies below it and the stand-ins, and nothing above.
# Tests run in a random order that is printed with the output, so that none comes to depend on another.
function(strutwright_test NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(test_${NAME} ${ARG_SOURCES})
  target_link_libraries(test_${NAME} PRIVATE strutwright_compiler ${ARG_USES} GTest::gmock GTest::gtest_main)
  add_test(NAME ${NAME} COMMAND test_${NAME} --gtest_shuffle --gtest_brief=1)
  set_tests_properties(${NAME} PROPERTIES TIMEOUT 600)
endfunction()
