# The cross compiler for Windows, and where the libraries made for it lie (ROVENA_WINDOWS_LIBRARIES, see libraries).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(machine x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${machine}-gcc-posix)
set(CMAKE_CXX_COMPILER ${machine}-g++-posix)
set(CMAKE_RC_COMPILER ${machine}-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/lib/wine/wine64) # what runs the tests
set(OPENSSL_USE_STATIC_LIBS ON)

set(CMAKE_FIND_ROOT_PATH /usr/${machine} $ENV{ROVENA_WINDOWS_LIBRARIES}/made $ENV{ROVENA_WINDOWS_LIBRARIES}/made/qt)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's own tools run here and come from the installed Qt of the same version.
set(QT_HOST_PATH /usr CACHE PATH "")
file(GLOB host_qt LIST_DIRECTORIES true /usr/lib/*/cmake/Qt6)
cmake_path(GET host_qt PARENT_PATH host_cmake)
set(QT_HOST_PATH_CMAKE_DIR ${host_cmake} CACHE PATH "")
