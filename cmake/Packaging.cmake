# What a Linux system gets beside the program, and the packages: the target "package" makes the
# Debian package, "package_source" the source archive.

set(CPACK_PACKAGE_VENDOR "The Voltmere authors")
set(CPACK_PACKAGE_CONTACT "The Voltmere authors <maintainers@voltmere.example>")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)

set(linux_resources ${PROJECT_SOURCE_DIR}/resources/linux)
set(made ${PROJECT_BINARY_DIR}/generated/linux)
configure_file(${linux_resources}/voltmere.1.in ${made}/voltmere.1 @ONLY)
# Follows SOURCE_DATE_EPOCH where that is set, so that a package can be made again byte for byte.
string(TIMESTAMP build_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${linux_resources}/changelog.Debian.in ${made}/changelog.Debian @ONLY)

find_program(GZIP gzip REQUIRED)
# Compresses `source` to `name`.gz, without a time stamp.
function(voltmere_compress name source)
  add_custom_command(OUTPUT ${made}/${name}.gz
    COMMAND ${GZIP} -9nc ${source} > ${made}/${name}.gz
    DEPENDS ${source} VERBATIM)
endfunction()
voltmere_compress(voltmere.1 ${made}/voltmere.1)
voltmere_compress(changelog ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
voltmere_compress(changelog.Debian ${made}/changelog.Debian)
add_custom_target(installed_documents ALL
  DEPENDS ${made}/voltmere.1.gz ${made}/changelog.gz ${made}/changelog.Debian.gz)

set(icons ${PROJECT_SOURCE_DIR}/resources/icons)
set(icon_theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${linux_resources}/org.voltmere.Voltmere.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${linux_resources}/org.voltmere.Voltmere.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${icons}/hicolor/ DESTINATION ${icon_theme})
install(FILES ${icons}/AppIcon.svg
        DESTINATION ${icon_theme}/scalable/apps RENAME org.voltmere.Voltmere.svg)
install(FILES ${icons}/org.voltmere.Voltmere-symbolic.svg
        DESTINATION ${icon_theme}/symbolic/apps)
install(FILES ${made}/voltmere.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${linux_resources}/completions/voltmere.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME voltmere)
install(FILES ${linux_resources}/completions/_voltmere
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${linux_resources}/completions/voltmere.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
install(FILES ${made}/changelog.gz ${made}/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS # whatever the umask of who packs
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_HOMEPAGE_URL "https://voltmere.example")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Shows the lowest battery level of Apple wireless mice, keyboards and
trackpads in the tray, and alerts you before one of them runs flat.
The levels come from the kernel, the names from BlueZ. They can be read in
the terminal and by status bars as well.")
# What the program links is computed. The plugins that Qt loads on X11 come with these libraries:
# the platform, PNG and the input methods with libqt6gui6, SVG with libqt6svg6.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS hicolor-icon-theme)
if(Qt6_VERSION VERSION_GREATER_EQUAL 6.5)
  # Its X11 platform is not loaded without this library.
  string(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS ", libxcb-cursor0")
endif()
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "bluez, default-dbus-session-bus | dbus-session-bus, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-wqy-microhei | fonts-noto-cjk, notification-daemon")

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION})
set(CPACK_SOURCE_IGNORE_FILES "/\\\\.git(/|$)" "^${PROJECT_SOURCE_DIR}/build" "~$")
include(CPack)
