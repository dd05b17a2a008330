# GoogleTest from the sources that Debian's package "googletest" installs, compiled for the target.
if(NOT TARGET GTest::gmock_main)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  # They are not held to this project's warnings.
  set_target_properties(gtest gtest_main gmock gmock_main PROPERTIES
    COMPILE_WARNING_AS_ERROR OFF COMPILE_OPTIONS -w)
endif()
