# What a Linux desktop and its services expect beside the programs.

install(PROGRAMS linux/rovena DESTINATION ${CMAKE_INSTALL_BINDIR})
foreach(program rovena-install rovena-import)
  install(CODE "file(CREATE_LINK ../lib/rovena/${program}
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${program}\" SYMBOLIC)")
endforeach()
install(FILES linux/rovena.desktop DESTINATION share/applications)
install(FILES linux/rovena.metainfo.xml DESTINATION share/metainfo)
install(FILES linux/jyunban.service DESTINATION lib/systemd/system)

file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/version ${PROJECT_VERSION}\n)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/version DESTINATION lib/rovena)

set(icons ${CMAKE_BINARY_DIR}/artwork/icon)
install(FILES ${icons}/rovena.png DESTINATION share/icons/hicolor/256x256/apps)
foreach(side 128 64 48)
  install(FILES ${icons}/rovena-${side}.png DESTINATION share/icons/hicolor/${side}x${side}/apps RENAME rovena.png)
endforeach()

foreach(page rovena.1 rovena-import.1 rovena-install.8)
  string(REGEX MATCH "[0-9]$" section ${page})
  add_custom_command(OUTPUT ${page}.gz
    COMMAND gzip -9nc ${CMAKE_CURRENT_SOURCE_DIR}/linux/${page} > ${page}.gz
    DEPENDS linux/${page} VERBATIM)
  list(APPEND pages ${CMAKE_CURRENT_BINARY_DIR}/${page}.gz)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${page}.gz DESTINATION share/man/man${section})
endforeach()
set(manual ${pages})
