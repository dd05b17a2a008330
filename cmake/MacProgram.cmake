# The program of macOS: one binary in a bundle, with AppKit's own windows. It needs no Qt. The bundle
# is signed ad hoc when it is installed; the target "package" makes a disk image.

set(CMAKE_OBJCXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
enable_language(OBJCXX)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)

add_library(voltmere_macos STATIC
  macos/notifications.mm
  macos/platform.mm
  macos/run_loop.mm
  macos/ui/alert.mm
  macos/ui/controls.mm
  macos/ui/front_end.mm
  macos/ui/icon.mm
  macos/ui/panel.mm
  macos/ui/scene.mm)
voltmere_target(voltmere_macos)
target_compile_options(voltmere_macos PRIVATE
  -fobjc-arc -Wundeclared-selector -Wunguarded-availability)
target_link_libraries(voltmere_macos PUBLIC voltmere_app
  "-framework AppKit" "-framework CoreFoundation" "-framework CoreGraphics"
  "-framework Foundation" "-framework ServiceManagement" "-framework UserNotifications")

add_executable(voltmere MACOSX_BUNDLE app/main.cpp)
target_link_libraries(voltmere PRIVATE voltmere_app voltmere_macos)
voltmere_target(voltmere)
target_link_options(voltmere PRIVATE -Wl,-dead_strip)
set_target_properties(voltmere PROPERTIES
  OUTPUT_NAME Voltmere
  MACOSX_BUNDLE_INFO_PLIST ${PROJECT_SOURCE_DIR}/resources/macos/Info.plist.in)

# bundle_resources(FOLDER FILE...): files of the bundle's Resources/FOLDER.
function(bundle_resources folder)
  target_sources(voltmere PRIVATE ${ARGN})
  set_source_files_properties(${ARGN} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${folder})
endfunction()

# Drawn into 20 by 20 points, the dense picture serves every screen.
set(status_icon ${PROJECT_BINARY_DIR}/generated/macos/StatusIcon.png)
configure_file(resources/icons/StatusIcon@2x.png ${status_icon} COPYONLY)
bundle_resources("" resources/icons/AppIcon.icns ${status_icon})
bundle_resources(demo resources/demo/ioreg resources/demo/system_profiler)
bundle_resources(en.lproj resources/macos/en.lproj/InfoPlist.strings)
bundle_resources(zh-Hans.lproj resources/macos/zh-Hans.lproj/InfoPlist.strings)

# Signed last, since each change breaks a signature.
install(TARGETS voltmere BUNDLE DESTINATION .)
install(CODE "
  execute_process(COMMAND codesign --force --sign - --identifier org.voltmere.Voltmere
                          \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/Voltmere.app\"
                  COMMAND_ERROR_IS_FATAL ANY)")

set(CPACK_GENERATOR External)
set(CPACK_EXTERNAL_ENABLE_STAGING ON)
set(CPACK_EXTERNAL_PACKAGE_SCRIPT ${PROJECT_SOURCE_DIR}/cmake/MacDiskImage.cmake)
set(CPACK_PACKAGE_FILE_NAME Voltmere-${PROJECT_VERSION})
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
include(CPack)
