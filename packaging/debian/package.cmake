# Where an installed program stands, and the Debian package that cpack makes of it.
if(NOT UNIX)
  return()
endif()
if(TARGET kestrel-aligner)
  install(TARGETS kestrel-aligner DESTINATION lib/kestrel-aligner)
  install(PROGRAMS scripts/window DESTINATION bin RENAME kestrel-aligner)
  install(DIRECTORY qml DESTINATION share/kestrel-aligner PATTERN source EXCLUDE)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/installed-qml)
  file(CREATE_LINK ../../share/kestrel-aligner/qml ${PROJECT_BINARY_DIR}/installed-qml/qml SYMBOLIC)
  install(DIRECTORY ${PROJECT_BINARY_DIR}/installed-qml/ DESTINATION lib/kestrel-aligner)
  install(FILES packaging/debian/kestrel-aligner.desktop DESTINATION share/applications)
  install(FILES src/app/icon/kestrel-aligner.svg DESTINATION share/icons/hicolor/scalable/apps)
  install(FILES src/app/icon/kestrel-aligner.png DESTINATION share/icons/hicolor/256x256/apps)
endif()
if(TARGET kestrel-align)
  install(TARGETS kestrel-align DESTINATION bin)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestrel-aligner)
set(CPACK_PACKAGE_VERSION "1.53~rc")
set(CPACK_PACKAGE_CONTACT "Kestrel - tools for digital artists <kestrel@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Lines up recordings of several cameras by their sound")
set(CPACK_PACKAGE_DESCRIPTION
    "Listens to the files of several cameras and sound recorders of one event, places
 each on a common timeline and writes that timeline for video editors.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# what is loaded or started at run time, which the libraries do not tell
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "ffmpeg, libmediainfo0v5, qml6-module-qtquick, qml6-module-qtquick-window,\
 qml6-module-qtquick-controls, qml6-module-qtquick-templates, qml6-module-qtquick-layouts,\
 qml6-module-qtqml, qml6-module-qtqml-models, qml6-module-qtqml-workerscript")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-inter, xdg-utils")
include(CPack)
