# Declares a GoogleTest program and registers it with CTest under one label:
#
#   voltmere_test(NAME name LABEL unit|ui|desktop|soak|fuzz|macos SOURCES file... LIBRARIES lib...)
#
# Tests run without a display, in the C locale and in UTC unless they set something else.
function(voltmere_test)
  cmake_parse_arguments(PARSE_ARGV 0 TEST "" "NAME;LABEL" "SOURCES;LIBRARIES")
  set(labels unit ui desktop soak fuzz macos)
  if(NOT TEST_LABEL IN_LIST labels)
    message(FATAL_ERROR "voltmere_test(${TEST_NAME}): LABEL is '${TEST_LABEL}', not one of ${labels}")
  endif()
  add_executable(${TEST_NAME} ${TEST_SOURCES})
  voltmere_target(${TEST_NAME})
  target_include_directories(${TEST_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${TEST_NAME} PRIVATE ${TEST_LIBRARIES})
  add_test(NAME ${TEST_NAME} COMMAND ${TEST_NAME})
  set_tests_properties(${TEST_NAME} PROPERTIES
    LABELS ${TEST_LABEL}
    TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANGUAGE=;TZ=UTC")
endfunction()
