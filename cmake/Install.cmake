# What `make install` / `cmake --install` puts on the system: the program, its
# launcher, its icon in the sizes menus ask for, the software-centre record, and
# the README with the picture it shows. The program itself needs nothing else at
# run time: its starting data is compiled in.
include(GNUInstallDirs)

set(LK_APP_ID org.larderkeep.Larderkeep)
set(LK_DIST ${CMAKE_SOURCE_DIR}/dist)

install(TARGETS larderkeep RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES ${LK_DIST}/${LK_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${LK_DIST}/${LK_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

install(FILES ${LK_DIST}/icons/${LK_APP_ID}.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 48 128 256)
  install(FILES ${LK_DIST}/icons/${LK_APP_ID}-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME ${LK_APP_ID}.png)
endforeach()

install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${CMAKE_SOURCE_DIR}/docs/main-window.png DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
