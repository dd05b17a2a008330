# What needs Qt: the front end and the program.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Svg)
configure_file(app/version.h.in generated/app/version.h @ONLY)

add_library(voltmere_ui STATIC
  platform/qt/damaged_file.cpp
  platform/qt/ending_signals.cpp
  platform/qt/json_settings.cpp
  platform/qt/qt_application.cpp
  platform/qt/qt_defaults.cpp
  platform/qt/qt_pointer.cpp
  platform/qt/qt_run_loop.cpp
  platform/qt/scheduled_timer.cpp
  snooze/window/alert_rows.cpp
  snooze/window/hover_controls.cpp
  snooze/window/hover_poller.cpp
  snooze/window/snooze_alert_presenter.cpp
  snooze/window/snooze_alert_window.cpp
  ui/app_icon_asset.cpp
  ui/assistive_names.cpp
  ui/content_view.cpp
  ui/device_list.cpp
  ui/device_row.cpp
  ui/display_text.cpp
  ui/divider.cpp
  ui/drawn_image.cpp
  ui/elided_label.cpp
  ui/icns.cpp
  ui/icon_texts.cpp
  ui/image_bundle.cpp
  ui/menu_bar_label.cpp
  ui/menu_text.cpp
  ui/no_tray_panel.cpp
  ui/panel_controller.cpp
  ui/panel_placement.cpp
  ui/picture_view.cpp
  ui/redraw_scheduler.cpp
  ui/setting_picker.cpp
  ui/status_image.cpp
  ui/status_label.cpp
  ui/symbol.cpp
  ui/theme.cpp
  ui/tray_image.cpp
  ui/tray_number.cpp
  ui/wrapping_label.cpp)
if(APPLE)
  include(cmake/MacPorts.cmake)
  target_link_libraries(voltmere_ui PUBLIC voltmere_macos)
  target_sources(voltmere_ui PRIVATE platform/macos/thread_class.cpp platform/macos/wake_timer.cpp)
else()
  find_package(Qt6 6.4 REQUIRED COMPONENTS DBus)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
  set_target_properties(voltmere_ui PROPERTIES AUTOMOC ON)
  target_sources(voltmere_ui PRIVATE
    platform/linux/bluez_name_source.cpp
    platform/linux/desktop_notifications.cpp
    platform/linux/notification_daemon.cpp
    platform/linux/notify_call.cpp
    platform/linux/pending_reminders.cpp
    platform/linux/portal_appearance.cpp
    platform/linux/reminder_json.cpp
    platform/linux/reminder_store.cpp
    platform/linux/thread_class.cpp
    platform/linux/tray_host_watcher.cpp
    platform/linux/wake_timer.cpp
    platform/linux/wayland_display.cpp
    platform/linux/x_display.cpp)
  target_link_libraries(voltmere_ui PUBLIC Qt6::DBus PRIVATE PkgConfig::XCB)
endif()
target_link_libraries(voltmere_ui PUBLIC voltmere_core Qt6::Widgets Qt6::Svg)
voltmere_target(voltmere_ui)

# The pictures become part of every program that links voltmere_ui. Uncompressed, they are read where
# they lie in the program and take no memory of their own.
qt_add_resources(voltmere_ui icons PREFIX /voltmere BASE resources/icons OPTIONS --no-compress
  FILES resources/icons/AppIcon.icns resources/icons/StatusIcon.png
        resources/icons/StatusIcon@2x.png resources/icons/StatusIcon.svg)
qt_add_resources(voltmere_ui symbols PREFIX /voltmere/symbols BASE resources/symbols
  OPTIONS --no-compress
  FILES resources/symbols/keyboard.svg resources/symbols/magicmouse.svg
        resources/symbols/questionmark.circle.svg
        resources/symbols/rectangle.and.hand.point.up.left.svg)

# The program without its main function, so that tests can link it.
add_library(voltmere_app STATIC
  app/app_delegate.cpp
  app/command_line.cpp
  app/demo_tools.cpp
  app/diagnose_command.cpp
  app/list_command.cpp
  app/peripherals.cpp
  app/qt_start.cpp
  app/reading_report.cpp
  app/screenshots.cpp
  app/services.cpp
  app/terminal_output.cpp
  app/terminal_width.cpp
  app/voltmere_app.cpp
  app/watch_command.cpp)
if(APPLE)
  target_sources(voltmere_app PRIVATE
    app/desktop_services_macos.cpp app/platform_factory_macos.cpp
    app/settings_location_macos.cpp app/settings_report_macos.cpp app/system_sources_macos.cpp)
else()
  target_sources(voltmere_app PRIVATE
    app/bus_instance.cpp app/desktop_services_linux.cpp app/platform_factory_linux.cpp
    app/settings_location_linux.cpp app/settings_report_linux.cpp app/system_sources_linux.cpp)
  set_target_properties(voltmere_app PROPERTIES AUTOMOC ON)
endif()
target_link_libraries(voltmere_app PUBLIC voltmere_ui)
voltmere_target(voltmere_app)

add_executable(voltmere app/main.cpp)
target_link_libraries(voltmere PRIVATE voltmere_app)
voltmere_target(voltmere)
if(APPLE)
  include(cmake/MacBundle.cmake)
else()
  install(TARGETS voltmere RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  # The simulated tools stand where the installed ones would, seen from the built program.
  file(COPY resources/demo DESTINATION share/voltmere)
  install(PROGRAMS resources/demo/ioreg resources/demo/system_profiler
          DESTINATION ${CMAKE_INSTALL_DATADIR}/voltmere/demo)
endif()
