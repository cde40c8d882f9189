# What every target of the project shares: warnings, sanitizers, precompiled headers, and the rule that
# one directory is one target that may include only what it links.

add_library(rovena_options INTERFACE)
target_compile_options(rovena_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wnon-virtual-dtor;-Woverloaded-virtual;-Werror;-Winvalid-pch>
  $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>) # ccache sees through precompiled headers only so
target_compile_definitions(rovena_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_KEYWORDS)
if(ROVENA_SANITIZE)
  target_compile_options(rovena_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
    -Wno-maybe-uninitialized) # gcc warns of its own instrumentation
  target_link_options(rovena_options INTERFACE -fsanitize=address,undefined)
endif()

# Headers are precompiled once for all targets of a sort, not once a target; the targets of a sort differ in nothing that the headers look at.
# rovena_precompiled(SORT LINKS target... HEADERS header...) makes them.
function(rovena_precompiled sort)
  cmake_parse_arguments(ARG "" "" "LINKS;HEADERS" ${ARGN})
  set(source ${PROJECT_BINARY_DIR}/precompiled/${sort}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "// Stands for the precompiled headers.\n")
  add_library(rovena_${sort} OBJECT ${source})
  target_link_libraries(rovena_${sort} PRIVATE rovena_options ${ARG_LINKS})
  if(ROVENA_PRECOMPILE)
    target_precompile_headers(rovena_${sort} PRIVATE ${ARG_HEADERS})
  endif()
endfunction()

# rovena_precompile(TARGET SORT): the target takes the headers of that sort.
function(rovena_precompile target sort)
  if(ROVENA_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM rovena_${sort})
  endif()
endfunction()

rovena_precompiled(core_headers LINKS Qt6::Core HEADERS <QtCore/QtCore>)
rovena_precompiled(widgets_headers LINKS Qt6::Widgets HEADERS <QtWidgets/QtWidgets>)

# rovena_library(NAME LINKS target... [HEADERS sort]): the sources of the current directory as the static library rovena_NAME.
# A directory reaches another one's headers only through the link, and src/ is the include root of all.
function(rovena_library name)
  cmake_parse_arguments(ARG "" "HEADERS" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR} holds no sources")
  endif()
  if(NOT ARG_HEADERS)
    set(ARG_HEADERS core_headers)
  endif()
  add_library(rovena_${name} STATIC ${sources})
  set_target_properties(rovena_${name} PROPERTIES LINKER_LANGUAGE CXX)
  rovena_precompile(rovena_${name} ${ARG_HEADERS})
  target_include_directories(rovena_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(rovena_${name} PUBLIC rovena_options ${ARG_LINKS})
endfunction()

# rovena_windows_resources(TARGET DESCRIPTION): what Windows reads in a program's file before it runs: icon, properties, and the manifest, by
# which texts of one byte a letter are UTF-8 and paths may be long.
function(rovena_windows_resources target description)
  if(NOT WIN32)
    return()
  endif()
  set(source ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(icon ${CMAKE_BINARY_DIR}/artwork/icon/rovena.ico)
  string(REPLACE . , version ${PROJECT_VERSION})
  configure_file(${source}/program.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}.rc PROPERTIES OBJECT_DEPENDS "${source}/program.manifest")
  add_dependencies(${target} artwork)
endfunction()

# rovena_test(NAME LINKS target... [HEADERS sort]): the sources of the current directory as one GoogleTest program NAME_test.
# The fakes that tests share lie in tests/support, and so does the main of a directory that has none of its own.
function(rovena_test name)
  cmake_parse_arguments(ARG "" "HEADERS" "LINKS;DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR} holds no tests")
  endif()
  if(NOT ARG_HEADERS)
    set(ARG_HEADERS test_headers)
  endif()
  if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/main.cpp)
    list(APPEND sources ${PROJECT_SOURCE_DIR}/tests/support/main.cpp)
  endif()
  add_executable(${name}_test ${sources})
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name}_test PRIVATE rovena_options ${ARG_LINKS} GTest::gtest GTest::gmock)
  rovena_windows_resources(${name}_test "test program")
  rovena_precompile(${name}_test ${ARG_HEADERS})
  if(ARG_DEPENDS)
    add_dependencies(${name}_test ${ARG_DEPENDS})
  endif()
  add_test(NAME ${name} COMMAND ${name}_test)
  set(environment "LC_ALL=C.UTF-8;ROVENA_BIN=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  if(NOT WIN32) # packaging/windows/under-wine has a display for Qt's own platform
    list(APPEND environment QT_QPA_PLATFORM=offscreen)
  endif()
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 600)
endfunction()

# The same program once more, its new databases on a PostgreSQL server that lives as long as it: NAME_on_server. What is of a
# file's nature is left out, as tests/files_only.txt tells. With a number, the facts are parted: NAME_on_server_parted.
function(rovena_test_on_server name partitions)
  file(STRINGS ${PROJECT_SOURCE_DIR}/tests/files_only.txt lines REGEX "^${name} ")
  list(TRANSFORM lines REPLACE "^[^ ]+ +([^ ]+) .*" "\\1")
  list(JOIN lines ":" left_out)
  set(test ${name}_on_server)
  if(partitions)
    string(APPEND test _parted)
    # How a server fails, is waited for and lets one in after the other is the same for both, and takes long.
    string(APPEND left_out ":*InTrouble*:OverANetwork.TheTurn*:SharedDatabase.*"
      ":OnAServer.ALongWait*:OnAServer.ASilent*:OnAServer.WhatKeeps*")
  endif()
  add_test(NAME ${test}
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-server $<TARGET_FILE:${name}_test> --gtest_filter=-${left_out})
  set(environment "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;ROVENA_BIN=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  set_tests_properties(${test} PROPERTIES ENVIRONMENT "${environment};PARTITIONS=${partitions}" TIMEOUT 600)
endfunction()
