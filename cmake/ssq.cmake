# How this project's targets are made.
#
#   ssq_library(name deps...)               src/<name>/*.cpp: logic; the compiler sees no widget header here
#   ssq_windows_library(name folder deps..) <folder>/*.cpp: windows, as target <name>_windows (toolkit: toolkit)
#   ssq_tests(name libs...)                 tests/<name>/*_test.cpp: one GoogleTest program, labelled logic, windows or
#                                           slow: ctest -L logic
#   ssq_hot_loops(name)                     -O3 for the loops that the compiler has to vectorise
#
# A folder is globbed: a new file needs no change here. A library whose folder is empty becomes an interface target.

set(CMAKE_AUTOMOC ON)

find_program(SSQ_CCACHE ccache)
if(SSQ_CCACHE)
  # Precompiled headers carry time macros and their own defines; ccache has to be told that it may pass over them.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${SSQ_CCACHE})
endif()

# One interface target carries every flag of our own code.
add_library(ssq_flags INTERFACE)
target_compile_options(ssq_flags INTERFACE
  -Wall -Wextra -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor -Werror
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>) # GCC 12 warns of its own std::string at -O2 and above
target_compile_definitions(ssq_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
target_include_directories(ssq_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(SSQ_CCACHE)
  target_compile_options(ssq_flags INTERFACE -fpch-preprocess)
endif()
if(SSQ_SANITIZE)
  target_compile_options(ssq_flags INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
    -fno-sanitize-recover=undefined)
  target_link_options(ssq_flags INTERFACE -fsanitize=address,undefined)
  if(SSQ_FUZZ)
    target_compile_options(ssq_flags INTERFACE -fsanitize=fuzzer-no-link)
  endif()
endif()

# One precompiled Qt header serves every window target.
function(ssq_pch target)
  if(NOT TARGET ssq_qt_pch)
    file(WRITE ${CMAKE_BINARY_DIR}/qt_pch.cpp "// Holds the precompiled Qt header.\n")
    add_library(ssq_qt_pch OBJECT ${CMAKE_BINARY_DIR}/qt_pch.cpp)
    set_target_properties(ssq_qt_pch PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(ssq_qt_pch PRIVATE ssq_flags Qt6::Widgets)
    target_precompile_headers(ssq_qt_pch PRIVATE <QtWidgets> <memory> <string> <vector>)
  endif()
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_precompile_headers(${target} REUSE_FROM ssq_qt_pch)
endfunction()

function(ssq_library name)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${name}/*.cpp ${PROJECT_SOURCE_DIR}/src/${name}/*.h)
  if(sources MATCHES "\\.cpp")
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC ssq_flags ${ARGN})
    if(NOT "${ARGN}" MATCHES "Qt6|workspace|history|selection|filter")
      set_target_properties(${name} PROPERTIES AUTOMOC OFF) # no Qt at all in here
    endif()
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE ssq_flags ${ARGN})
  endif()
endfunction()

function(ssq_windows_library name folder)
  if(NOT SSQ_WIDGETS)
    return()
  endif()
  set(target ${name}_windows)
  if(name STREQUAL "toolkit")
    set(target toolkit)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/${folder}/*.h
    ${PROJECT_SOURCE_DIR}/${folder}/*.qrc)
  if(sources MATCHES "\\.cpp")
    add_library(${target} STATIC ${sources})
    set_target_properties(${target} PROPERTIES AUTORCC ON)
    target_link_libraries(${target} PUBLIC ssq_flags Qt6::Widgets Qt6::Svg ${ARGN})
    ssq_pch(${target})
  else()
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE ssq_flags Qt6::Widgets ${ARGN})
  endif()
endfunction()

function(ssq_hot_loops name)
  if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug" AND NOT SSQ_SANITIZE)
    target_compile_options(${name} PRIVATE -O3)
  endif()
endfunction()

function(ssq_tests name)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${name}/*_test.cpp
    ${PROJECT_SOURCE_DIR}/tests/${name}/*_support.cpp ${PROJECT_SOURCE_DIR}/tests/${name}/*.h)
  if(NOT sources MATCHES "_test\\.cpp")
    return()
  endif()
  add_executable(${name}_tests ${sources})
  target_link_libraries(${name}_tests PRIVATE ssq_flags ${ARGN} GTest::gtest GTest::gmock)
  target_include_directories(${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name}_tests PRIVATE
    SSQ_TEST_DATA="${PROJECT_SOURCE_DIR}/tests" SSQ_REAL_DATA="${PROJECT_SOURCE_DIR}/data/history")
  set(label logic)
  if(name STREQUAL "windows")
    set(label windows)
  elseif(name MATCHES "^(crash|fuzz)$")
    set(label slow)
  endif()
  if(name STREQUAL "windows")
    ssq_pch(${name}_tests)
  endif()
  gtest_discover_tests(${name}_tests DISCOVERY_TIMEOUT 120 DISCOVERY_MODE PRE_TEST
    PROPERTIES LABELS ${label} TIMEOUT 1200 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
