# What Windows doesn't have lies beside the programs: Qt, the compiler's libraries, Qt's plugins and texts, and the fonts
# for a Windows without the Japanese ones.

get_target_property(qt_library Qt6::Core IMPORTED_LOCATION_RELEASE)
cmake_path(GET qt_library PARENT_PATH qt_libraries)
cmake_path(GET qt_libraries PARENT_PATH qt)
foreach(part Core Gui Widgets Network PrintSupport)
  install(FILES ${qt_libraries}/Qt6${part}.dll DESTINATION ${program_folder})
endforeach()
foreach(library libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}.dll OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
  install(FILES ${file} DESTINATION ${program_folder})
endforeach()

install(DIRECTORY ${qt}/plugins DESTINATION ${program_folder} FILES_MATCHING PATTERN *.dll
  PATTERN qminimal.dll EXCLUDE PATTERN qoffscreen.dll EXCLUDE PATTERN generic EXCLUDE)
install(FILES /usr/share/qt6/translations/qtbase_ja.qm DESTINATION ${program_folder}/translations)
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/qt.conf "[Paths]\nPrefix=.\nPlugins=plugins\nTranslations=translations\n")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qt.conf DESTINATION ${program_folder})

set(fonts /usr/share/fonts/opentype)
install(FILES ${fonts}/ipafont-mincho/ipam.ttf ${fonts}/ipafont-gothic/ipag.ttf DESTINATION ${program_folder}/fonts)

# The terms of all of it, as the source packages tell them.
foreach(package libqt6core6 libsqlcipher0 libssl3 libpq5 libnettle8 libstdc++6 fonts-ipafont-mincho)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION ${program_folder}/licenses RENAME ${package}.txt)
endforeach()

install(FILES windows/start.cmd DESTINATION ${program_folder})
