# What stands behind the ports on macOS, in Objective-C++. It needs no Qt.

set(CMAKE_OBJCXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
enable_language(OBJCXX)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)

add_library(voltmere_macos STATIC
  macos/app_appearance.mm
  macos/cocoa_application.mm
  macos/cocoa_status_item.mm
  macos/locale_languages.mm
  macos/main_app_login_item.mm
  macos/ns_log.mm
  macos/running_instances.mm
  macos/user_notifications.mm
  macos/wake_observer.mm)
voltmere_target(voltmere_macos)
target_compile_options(voltmere_macos PRIVATE -fobjc-arc -Wunguarded-availability)
target_link_libraries(voltmere_macos
  PRIVATE voltmere_core
  PUBLIC "-framework Foundation" "-framework AppKit" "-framework CoreFoundation"
         "-framework CoreGraphics" "-framework ServiceManagement" "-framework UserNotifications")
