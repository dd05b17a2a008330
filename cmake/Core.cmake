# voltmere_core: the portable rooms, posix and, except on macOS, the files of linux that need no Qt.

add_library(voltmere_core STATIC
  alerting/check_result.cpp
  alerting/notifications.cpp
  devices/battery_device.cpp
  devices/device_reader.cpp
  devices/peripheral_tools.cpp
  devices/profiler_parser.cpp
  devices/registry_parser.cpp
  model/battery_model.cpp
  posix/calendar.cpp
  posix/memory_defaults.cpp
  posix/process_runner.cpp
  posix/system_log.cpp
  snooze/custom_time.cpp
  snooze/snooze_alert.cpp
  texts/l10n.cpp
  texts/plain_text.cpp
  ui/icon.cpp
  ui/panel.cpp)
if(NOT APPLE)
  target_sources(voltmere_core PRIVATE
    linux/atomic_file.cpp
    linux/environment.cpp
    linux/installation.cpp
    linux/json_file.cpp
    linux/settings.cpp
    linux/login_item.cpp
    linux/sysfs_battery_source.cpp)
endif()

if(VOLTMERE_SANITIZE MATCHES undefined)
  # The check of an object's type needs descriptors itself. A test runs this file where none is left.
  set_source_files_properties(posix/process_runner.cpp PROPERTIES COMPILE_OPTIONS -fno-sanitize=vptr)
endif()

target_link_libraries(voltmere_core PUBLIC Threads::Threads)
find_package(nlohmann_json REQUIRED)
target_link_libraries(voltmere_core PRIVATE nlohmann_json::nlohmann_json)
voltmere_target(voltmere_core)

# voltmere_app: the program without its main function. It calls the functions of app/platform.h, which
# the library of a system, or a test, defines.
configure_file(app/version.h.in generated/app/version.h @ONLY)
add_library(voltmere_app STATIC
  app/command_line.cpp
  app/services.cpp
  app/studio.cpp
  app/terminal.cpp
  app/voltmere_app.cpp)
target_link_libraries(voltmere_app PUBLIC voltmere_core PRIVATE nlohmann_json::nlohmann_json)
voltmere_target(voltmere_app)
