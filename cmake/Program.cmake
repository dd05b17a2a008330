# The two programs of a Linux desktop and what needs Qt: "voltmere" with the terminal commands loads
# no library that draws, and starts "voltmere-desktop" for all else.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Widgets Svg)
find_package(PkgConfig REQUIRED)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)

add_library(voltmere_linux STATIC
  linux/bluez_name_source.cpp
  linux/bus_call.cpp
  linux/notifications.cpp
  linux/platform.cpp
  linux/run_loop.cpp
  linux/single_instance.cpp)
set_target_properties(voltmere_linux PROPERTIES AUTOMOC ON)
target_link_libraries(voltmere_linux PUBLIC voltmere_core Qt6::DBus)
voltmere_target(voltmere_linux)

# Where both are there, windows stand where they belong on Wayland too. Versions before 6 are for Qt 5.
find_package(LayerShellQt 6 QUIET)
pkg_check_modules(WAYLAND QUIET IMPORTED_TARGET wayland-client)

add_library(voltmere_ui STATIC
  linux/ui/portal_appearance.cpp
  linux/ui/tray_host_watcher.cpp
  linux/ui/alert.cpp
  linux/ui/front_end.cpp
  linux/ui/hover_controls.cpp
  linux/ui/icon.cpp
  linux/ui/images.cpp
  linux/ui/panel.cpp
  linux/ui/panel_controller.cpp
  linux/ui/theme.cpp
  linux/ui/views.cpp)
set_target_properties(voltmere_ui PROPERTIES AUTOMOC ON)
target_link_libraries(voltmere_ui PUBLIC voltmere_app voltmere_linux Qt6::Widgets Qt6::Svg
                                  PRIVATE PkgConfig::XCB)
voltmere_target(voltmere_ui)
if(LayerShellQt_FOUND AND WAYLAND_FOUND)
  target_sources(voltmere_ui PRIVATE linux/ui/layer_shell.cpp)
  target_link_libraries(voltmere_ui PRIVATE LayerShellQt::Interface PkgConfig::WAYLAND)
else()
  target_sources(voltmere_ui PRIVATE linux/ui/layer_shell_missing.cpp)
endif()

# The pictures become part of every program that links voltmere_ui. Uncompressed, they are read where
# they lie in the program and take no memory of their own.
qt_add_resources(voltmere_ui icons PREFIX /voltmere BASE resources/icons OPTIONS --no-compress
  FILES resources/icons/AppIcon.svg resources/icons/StatusIcon.png
        resources/icons/StatusIcon@2x.png resources/icons/StatusIcon.svg)
qt_add_resources(voltmere_ui digits PREFIX /voltmere BASE resources OPTIONS --no-compress
  FILES resources/digits.svg)
qt_add_resources(voltmere_ui symbols PREFIX /voltmere/symbols BASE resources/symbols
  OPTIONS --no-compress
  FILES resources/symbols/keyboard.svg resources/symbols/magicmouse.svg
        resources/symbols/questionmark.circle.svg
        resources/symbols/rectangle.and.hand.point.up.left.svg)

add_executable(voltmere app/main.cpp)
target_link_libraries(voltmere PRIVATE voltmere_app voltmere_linux)
voltmere_target(voltmere)
install(TARGETS voltmere RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

add_executable(voltmere-desktop linux/ui/main.cpp)
target_link_libraries(voltmere-desktop PRIVATE voltmere_ui)
voltmere_target(voltmere-desktop)
add_dependencies(voltmere voltmere-desktop)
# The same place below the build and below the prefix of an installation.
set_target_properties(voltmere-desktop PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/libexec/voltmere)
install(TARGETS voltmere-desktop RUNTIME DESTINATION libexec/voltmere)

# The simulated tools stand where the installed ones would, seen from the built program.
file(COPY resources/demo DESTINATION share/voltmere)
install(PROGRAMS resources/demo/ioreg resources/demo/system_profiler
        DESTINATION share/voltmere/demo)
