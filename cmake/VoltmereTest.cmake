# Declares a GoogleTest program and registers it with CTest under one label:
#
#   voltmere_test(NAME name LABEL unit|ui|matrix|desktop|soak|fuzz|macos SOURCES file... LIBRARIES lib...)
#
# Tests run without a display, in the C locale, in UTC and without the user's settings of Qt unless
# they set something else.
function(voltmere_test)
  cmake_parse_arguments(PARSE_ARGV 0 TEST "" "NAME;LABEL" "SOURCES;LIBRARIES")
  voltmere_check_label(${TEST_NAME} "${TEST_LABEL}")
  add_executable(${TEST_NAME} ${TEST_SOURCES})
  voltmere_target(${TEST_NAME})
  # What is tested is optimised as it ships; the tests themselves only have to be built fast.
  target_compile_options(${TEST_NAME} PRIVATE $<$<CONFIG:Release>:-O1>)
  target_include_directories(${TEST_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${TEST_NAME} PRIVATE ${TEST_LIBRARIES})
  add_test(NAME ${TEST_NAME} COMMAND ${TEST_NAME})
  set_tests_properties(${TEST_NAME} PROPERTIES
    LABELS ${TEST_LABEL}
    TIMEOUT 300)
  voltmere_test_environment(${TEST_NAME})
endfunction()

function(voltmere_test_environment test)
  set(users_own QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_FONT_DPI QT_SCALE_FACTOR
    QT_SCREEN_SCALE_FACTORS QT_ENABLE_HIGHDPI_SCALING)
  list(TRANSFORM users_own APPEND "=unset:")
  set_tests_properties(${test} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANGUAGE=;TZ=UTC"
    ENVIRONMENT_MODIFICATION "${users_own}")
endfunction()

# Registers a story, the script NAME_story.py of the same folder, that uses the installed program on a
# desktop of its own:
#
#   voltmere_story(NAME name LABEL desktop|soak)
#
# A story that fails leaves a picture of the screen in the build directory. The interpreter is the
# distribution's, because the packages that the stories need are its own.
function(voltmere_story)
  cmake_parse_arguments(PARSE_ARGV 0 TEST "" "NAME;LABEL" "")
  voltmere_check_label(${TEST_NAME} "${TEST_LABEL}")
  add_test(NAME ${TEST_NAME}_story
    COMMAND /usr/bin/python3 -B ${CMAKE_CURRENT_SOURCE_DIR}/${TEST_NAME}_story.py)
  set(directory ${CMAKE_CURRENT_BINARY_DIR})
  set_tests_properties(${TEST_NAME}_story PROPERTIES
    LABELS ${TEST_LABEL}
    TIMEOUT 300
    SKIP_RETURN_CODE 77
    FIXTURES_REQUIRED desktop_installation
    ENVIRONMENT "VOLTMERE_PROGRAM=${directory}/installed/bin/voltmere;VOLTMERE_PICTURES=${directory}/pictures")
endfunction()

function(voltmere_check_label name label)
  set(labels unit ui matrix desktop soak fuzz macos)
  if(NOT label IN_LIST labels)
    message(FATAL_ERROR "The label of the test ${name} is '${label}', not one of ${labels}")
  endif()
endfunction()
