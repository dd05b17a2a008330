# What stands behind the ports on macOS, in Objective-C++. It needs no Qt.

set(CMAKE_OBJCXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
enable_language(OBJCXX)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)

add_library(voltmere_macos STATIC
  platform/macos/app_appearance.mm
  platform/macos/cocoa_application.mm
  platform/macos/cocoa_status_item.mm
  platform/macos/locale_languages.mm
  platform/macos/main_app_login_item.mm
  platform/macos/ns_log.mm
  platform/macos/running_instances.mm
  platform/macos/user_notifications.mm
  platform/macos/wake_observer.mm)
voltmere_target(voltmere_macos)
target_compile_options(voltmere_macos PRIVATE -fobjc-arc -Wunguarded-availability)
target_link_libraries(voltmere_macos
  PRIVATE voltmere_core
  PUBLIC "-framework Foundation" "-framework AppKit" "-framework CoreFoundation"
         "-framework CoreGraphics" "-framework ServiceManagement" "-framework UserNotifications")
