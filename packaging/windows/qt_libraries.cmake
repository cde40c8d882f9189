# Puts Qt's libraries beside the programs. Not tested.
find_program(deploy windeployqt REQUIRED)
foreach(program rovena jyusinkanri jyunban rovena-install rovena-import)
  execute_process(COMMAND ${deploy} --no-translations ${CMAKE_INSTALL_PREFIX}/${program}.exe COMMAND_ERROR_IS_FATAL ANY)
endforeach()
