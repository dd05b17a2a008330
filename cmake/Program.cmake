# What needs Qt: the front end and the program.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Widgets Svg)
configure_file(app/version.h.in generated/app/version.h @ONLY)

add_library(voltmere_ui STATIC
  linux/bluez_name_source.cpp
  linux/damaged_file.cpp
  linux/desktop_notifications.cpp
  linux/ending_signals.cpp
  linux/json_settings.cpp
  linux/notification_daemon.cpp
  linux/notify_call.cpp
  linux/pending_reminders.cpp
  linux/portal_appearance.cpp
  linux/qt_application.cpp
  linux/qt_defaults.cpp
  linux/qt_pointer.cpp
  linux/run_loop.cpp
  linux/reminder_json.cpp
  linux/reminder_store.cpp
  linux/tray_host_watcher.cpp
  linux/ui/alert.cpp
  linux/ui/app_icon_asset.cpp
  linux/ui/drawn_image.cpp
  linux/ui/hover_controls.cpp
  linux/ui/icns.cpp
  linux/ui/icon.cpp
  linux/ui/image_bundle.cpp
  linux/ui/panel.cpp
  linux/ui/panel_controller.cpp
  linux/ui/redraw_scheduler.cpp
  linux/ui/setting_picker.cpp
  linux/ui/status_image.cpp
  linux/ui/theme.cpp
  linux/ui/tray_number.cpp
  linux/ui/views.cpp
  linux/wayland_display.cpp
  linux/x_display.cpp)
find_package(PkgConfig REQUIRED)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
set_target_properties(voltmere_ui PROPERTIES AUTOMOC ON)
target_link_libraries(voltmere_ui PUBLIC voltmere_core Qt6::DBus Qt6::Widgets Qt6::Svg
                                  PRIVATE PkgConfig::XCB)
voltmere_target(voltmere_ui)

# The pictures become part of every program that links voltmere_ui. Uncompressed, they are read where
# they lie in the program and take no memory of their own.
qt_add_resources(voltmere_ui icons PREFIX /voltmere BASE resources/icons OPTIONS --no-compress
  FILES resources/icons/AppIcon.icns resources/icons/StatusIcon.png
        resources/icons/StatusIcon@2x.png resources/icons/StatusIcon.svg)
qt_add_resources(voltmere_ui digits PREFIX /voltmere BASE resources OPTIONS --no-compress
  FILES resources/digits.svg)
qt_add_resources(voltmere_ui symbols PREFIX /voltmere/symbols BASE resources/symbols
  OPTIONS --no-compress
  FILES resources/symbols/keyboard.svg resources/symbols/magicmouse.svg
        resources/symbols/questionmark.circle.svg
        resources/symbols/rectangle.and.hand.point.up.left.svg)

# The program without its main function, so that tests can link it.
add_library(voltmere_app STATIC
  app/app_delegate.cpp
  app/bus_instance.cpp
  app/command_line.cpp
  app/demo_tools.cpp
  app/desktop_services.cpp
  app/diagnose_command.cpp
  app/list_command.cpp
  app/peripherals.cpp
  app/platform_factory.cpp
  app/qt_start.cpp
  app/reading_report.cpp
  app/screenshots.cpp
  app/services.cpp
  app/settings_location.cpp
  app/settings_report.cpp
  app/system_sources.cpp
  app/terminal_output.cpp
  app/terminal_width.cpp
  app/voltmere_app.cpp
  app/watch_command.cpp)
set_target_properties(voltmere_app PROPERTIES AUTOMOC ON)
target_link_libraries(voltmere_app PUBLIC voltmere_ui)
voltmere_target(voltmere_app)

add_executable(voltmere app/main.cpp)
target_link_libraries(voltmere PRIVATE voltmere_app)
voltmere_target(voltmere)
install(TARGETS voltmere RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The simulated tools stand where the installed ones would, seen from the built program.
file(COPY resources/demo DESTINATION share/voltmere)
install(PROGRAMS resources/demo/ioreg resources/demo/system_profiler
        DESTINATION ${CMAKE_INSTALL_DATADIR}/voltmere/demo)
