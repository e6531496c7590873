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

# Texts, packed as Debian wants them. A package needs the target "texts" to be built.
set(texts ${PROJECT_BINARY_DIR}/texts)
function(kestrel_packed source name)
  add_custom_command(OUTPUT ${texts}/${name}.gz COMMAND gzip -9nc ${source} > ${texts}/${name}.gz
                     DEPENDS ${source} VERBATIM)
  set_property(GLOBAL APPEND PROPERTY kestrel_packed ${texts}/${name}.gz)
endfunction()
if(TARGET texts)
  set(debian ${PROJECT_SOURCE_DIR}/packaging/debian)
  kestrel_packed(${texts}/kestrel-align.1 kestrel-align.1)
  kestrel_packed(${debian}/kestrel-aligner.1 kestrel-aligner.1)
  kestrel_packed(${debian}/changelog changelog)
  get_property(packed GLOBAL PROPERTY kestrel_packed)
  add_custom_target(packed_texts ALL DEPENDS ${packed})
  add_dependencies(packed_texts texts)
  install(FILES ${texts}/kestrel-align.1.gz ${texts}/kestrel-aligner.1.gz
          DESTINATION share/man/man1)
  install(FILES ${texts}/changelog.gz ${debian}/copyright DESTINATION share/doc/kestrel-aligner)
  install(FILES ${texts}/kestrel-align.bash DESTINATION share/bash-completion/completions
          RENAME kestrel-align)
  install(FILES ${debian}/kestrel-aligner.xml DESTINATION share/mime/packages)
  install(FILES ${debian}/tools.kestrel.Aligner.metainfo.xml DESTINATION share/metainfo)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestrel-aligner)
set(CPACK_PACKAGE_VERSION "1.53~rc")
set(CPACK_PACKAGE_CONTACT "Kestrel - tools for digital artists <kestrel@kestrel-aligner.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Lines up recordings of several cameras by their sound")
set(CPACK_PACKAGE_DESCRIPTION
    "Listens to the files of several cameras and sound recorders of one event,
 places each on a common timeline and writes that timeline for video editors.")
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
