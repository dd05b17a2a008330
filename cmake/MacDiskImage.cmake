# Run by CPack: makes the disk image of the installed bundle, with a link to drag it onto.

file(CREATE_LINK /Applications ${CPACK_TEMPORARY_DIRECTORY}/Applications SYMBOLIC)
set(image ${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.dmg)
execute_process(
  COMMAND hdiutil create -volname Voltmere -srcfolder ${CPACK_TEMPORARY_DIRECTORY} -ov -format UDZO
          ${image}
  COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES ${image})
