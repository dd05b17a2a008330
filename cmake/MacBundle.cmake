# Voltmere.app: what lies in it, how it is made to run on other Macs, and its disk image.
#
#   cmake --install build --prefix DIR     puts a bundle with Qt inside into DIR
#   cpack --config build/CPackConfig.cmake -B DIR     makes a disk image of it
#
# A bundle has the architectures that Qt has. For both at once, use a universal Qt (Homebrew's has
# one architecture) and configure with -DCMAKE_OSX_ARCHITECTURES="arm64;x86_64".

# bundle_resources(FOLDER FILE...): files of the bundle's Resources/FOLDER.
function(bundle_resources folder)
  list(TRANSFORM ARGN PREPEND ${PROJECT_SOURCE_DIR}/)
  target_sources(voltmere PRIVATE ${ARGN})
  set_source_files_properties(${ARGN} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${folder})
endfunction()

bundle_resources("" resources/icons/AppIcon.icns resources/icons/StatusIcon.png
  resources/icons/StatusIcon@2x.png)
bundle_resources(demo resources/demo/ioreg resources/demo/system_profiler)
bundle_resources(en.lproj resources/macos/en.lproj/InfoPlist.strings)
bundle_resources(zh-Hans.lproj resources/macos/zh-Hans.lproj/InfoPlist.strings)
set_target_properties(voltmere PROPERTIES
  MACOSX_BUNDLE ON
  OUTPUT_NAME Voltmere
  MACOSX_BUNDLE_INFO_PLIST ${PROJECT_SOURCE_DIR}/resources/macos/Info.plist.in)

install(TARGETS voltmere BUNDLE DESTINATION .)

# The bundle is complete once Qt is inside; then it is signed, since each change breaks a signature.
if(TARGET Qt6::qmake)
  get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
  get_filename_component(qt_programs ${qmake} DIRECTORY)
  find_program(MACDEPLOYQT macdeployqt HINTS ${qt_programs} REQUIRED)
  set(offscreen "")
  if(TARGET Qt6::QOffscreenIntegrationPlugin)
    # --screenshots draws with it; macdeployqt takes only the one that shows windows.
    install(FILES $<TARGET_FILE:Qt6::QOffscreenIntegrationPlugin>
            DESTINATION Voltmere.app/Contents/PlugIns/platforms)
    set(offscreen
      "-executable=\${bundle}/Contents/PlugIns/platforms/$<TARGET_FILE_NAME:Qt6::QOffscreenIntegrationPlugin>")
  endif()
  install(CODE "
    set(bundle \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/Voltmere.app\")
    execute_process(COMMAND \"${MACDEPLOYQT}\" \"\${bundle}\" \"${offscreen}\"
                    COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND codesign --force --deep --sign - \"\${bundle}\"
                    COMMAND_ERROR_IS_FATAL ANY)")
endif()

set(CPACK_GENERATOR DragNDrop)
set(CPACK_DMG_VOLUME_NAME Voltmere)
set(CPACK_PACKAGE_FILE_NAME Voltmere-${PROJECT_VERSION})
include(CPack)
