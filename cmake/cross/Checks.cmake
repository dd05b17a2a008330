# Only for a build for macOS on Linux.

# The core's tests in one folder, ready to be carried to a Mac.
if(VOLTMERE_TESTS)
  set(core_tests alerting_test app_test devices_test model_test posix_test snooze_test test_child
      texts_test ui_test)
  set_target_properties(${core_tests} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/core-tests)
  configure_file(cmake/cross/run_core_tests core-tests/run_core_tests COPYONLY)
  add_custom_target(core_tests_for_macos DEPENDS ${core_tests})
endif()
