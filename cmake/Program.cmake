# What needs Qt: the front end and the program.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets DBus Svg)
configure_file(app/version.h.in generated/app/version.h @ONLY)

add_library(voltmere_ui STATIC
  platform/qt/json_settings.cpp
  platform/qt/qt_defaults.cpp)
target_link_libraries(voltmere_ui PUBLIC voltmere_core Qt6::Widgets Qt6::DBus Qt6::Svg)
voltmere_target(voltmere_ui)

# The program without its main function, so that tests can link it.
add_library(voltmere_app STATIC
  app/command_line.cpp
  app/demo_tools.cpp
  app/list_command.cpp
  app/peripherals.cpp
  app/reading_report.cpp
  app/settings_location.cpp
  app/terminal_width.cpp)
if(APPLE)
  target_sources(voltmere_app PRIVATE app/system_sources_macos.cpp)
else()
  target_sources(voltmere_app PRIVATE app/system_sources_linux.cpp)
endif()
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
