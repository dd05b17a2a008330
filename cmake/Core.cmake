# The core: standard C++ and the operating system's C interface, no Qt.

add_library(voltmere_core STATIC
  alerting/check_result.cpp
  alerting/notification_delegate.cpp
  alerting/notification_setup.cpp
  alerting/status_text.cpp
  alerting/uuid.cpp
  devices/battery_device.cpp
  devices/bluetooth_address.cpp
  devices/bluetooth_name_resolver.cpp
  devices/device_listing.cpp
  devices/device_reader.cpp
  devices/numeric_character.cpp
  devices/peripheral_tools.cpp
  devices/profiler_parser.cpp
  devices/registry_parser.cpp
  texts/utf8.cpp
  model/app_language.cpp
  model/battery_model.cpp
  model/check_cycle.cpp
  model/l10n.cpp
  model/l10n_format.cpp
  model/l10n_tables.cpp
  model/snooze_operations.cpp
  platform/posix/atomic_file.cpp
  platform/posix/environment_languages.cpp
  platform/posix/memory_defaults.cpp
  texts/plain_text.cpp
  platform/posix/posix_calendar.cpp
  platform/posix/posix_process_runner.cpp
  platform/posix/posix_system_log.cpp
  snooze/custom_time.cpp
  snooze/snooze_alert.cpp)

if(NOT APPLE)
  target_sources(voltmere_core PRIVATE
    platform/linux/autostart_login_item.cpp
    platform/linux/autostart_rules.cpp
    platform/linux/autostart_session.cpp
    platform/linux/desktop_entry.cpp
    platform/linux/hid_uevent.cpp
    platform/linux/sysfs_battery_source.cpp)
endif()

target_link_libraries(voltmere_core PUBLIC Threads::Threads)
voltmere_target(voltmere_core)
