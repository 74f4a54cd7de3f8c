# Shared compile settings, and the one way in which a folder becomes a library or a test program.

add_library(velmora_options INTERFACE)
target_compile_options(velmora_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<BOOL:${VELMORA_WERROR}>:-Werror>)
target_compile_definitions(velmora_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS
  VELMORA_VERSION="${PROJECT_VERSION}")
target_include_directories(velmora_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(VELMORA_SANITIZE)
  target_compile_options(velmora_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(velmora_options INTERFACE -fsanitize=address,undefined)
endif()

# velmora_layer(NAME LINK lib... [SOURCES file...] [EXCLUDE file...]): the static library of a layer.
# Without SOURCES it holds every source file of the calling folder, subfolders included: a file that
# lies in a layer's folder is built, there is no list to forget it in.
function(velmora_layer name)
  cmake_parse_arguments(arg "" "" "LINK;SOURCES;EXCLUDE" ${ARGN})
  set(sources ${arg_SOURCES})
  if(NOT sources)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.cpp *.h)
    if(arg_EXCLUDE)
      list(REMOVE_ITEM sources ${arg_EXCLUDE})
    endif()
    list(FILTER sources EXCLUDE REGEX "_windows\\.cpp$")
  endif()
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE velmora_options ${arg_LINK})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(${name} PUBLIC velmora_options ${arg_LINK})
  velmora_precompile(${name})
  velmora_moc_anew(${name} "${sources}")
endfunction()

# Has moc look at a library again whose files are others than at the last time: CMake 3.25 watches
# only the files that it knew then, and a new one would be left out of an incremental build.
function(velmora_moc_anew name sources)
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}_sources.txt)
  set(known "")
  if(EXISTS ${list})
    file(READ ${list} known)
  endif()
  if(NOT known STREQUAL sources)
    file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
    file(WRITE ${list} "${sources}")
  endif()
endfunction()

# Qt's and the standard library's big headers, compiled once for each library.
function(velmora_precompile target)
  target_precompile_headers(${target} PRIVATE
    <algorithm> <cstdint> <functional> <memory> <optional> <string> <vector>
    <QImage> <QObject> <QString> <QStringList> <QTextDocument> <QTextLayout>)
  get_target_property(links ${target} LINK_LIBRARIES)
  if("Qt6::Widgets" IN_LIST links)
    target_precompile_headers(${target} PRIVATE <QWidget> <QApplication>)
  endif()
endfunction()

# velmora_tests(NAME FOLDER LINK lib... LABEL label): one GoogleTest program from all *_test.cpp of FOLDER.
function(velmora_tests name folder)
  cmake_parse_arguments(arg "" "LABEL;TIMEOUT" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*_test.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${arg_LINK} test_support GTest::gmock)
  target_precompile_headers(${name} REUSE_FROM test_support)
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  velmora_test_home(${name} ${VELMORA_TEST_FONTS})
  set_tests_properties(${name} PROPERTIES LABELS ${arg_LABEL} TIMEOUT ${arg_TIMEOUT})
  if(arg_LABEL STREQUAL unit)
    # Once more with other fonts: nothing hangs on those that a machine happens to have.
    add_test(NAME ${name}_other_fonts COMMAND ${name})
    velmora_test_home(${name}_other_fonts ${VELMORA_OTHER_FONTS})
    set_tests_properties(${name}_other_fonts PROPERTIES LABELS other_fonts TIMEOUT ${arg_TIMEOUT})
  endif()
endfunction()

# velmora_test_home(NAME FONTS): what a test finds around it, the font configuration FONTS among it.
function(velmora_test_home name fonts)
  # A home of its own: no test reads or writes what belongs to the user who runs it.
  set(home ${CMAKE_CURRENT_BINARY_DIR}/${name}_home)
  file(MAKE_DIRECTORY ${home})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;HOME=${home};XDG_CONFIG_HOME=${home}/config;FONTCONFIG_FILE=${fonts};VELMORA_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()
