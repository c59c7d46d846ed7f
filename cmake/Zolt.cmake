# How every target of the tree is made: language level, warnings, sanitizers, precompiled headers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_SKIP_INSTALL_RPATH ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

option(ZOLT_CLANG_TIDY "Run clang-tidy beside the compiler" OFF)
set(ZOLT_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")

if(ZOLT_CLANG_TIDY)
  find_program(CLANG_TIDY NAMES clang-tidy REQUIRED)
  set(CMAKE_CXX_CLANG_TIDY ${CLANG_TIDY})
endif()

# A test program is linked in 0.16 s instead of 0.44 s, and there are some seventy of them.
find_program(ZOLT_LLD NAMES ld.lld)
if(ZOLT_LLD)
  add_link_options(-fuse-ld=lld)
endif()
# Static rooms name more libraries than each program calls; what is not called is not loaded.
add_link_options(-Wl,--as-needed)

# Where the modules are installed, below the prefix.
set(ZOLT_MODULE_FOLDER ${CMAKE_INSTALL_LIBDIR}/zolt)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                    -Wno-missing-field-initializers -Werror)
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
                        QT_STRICT_ITERATORS)
include_directories(${PROJECT_SOURCE_DIR}/src)

if(ZOLT_SANITIZE)
  # Two empty lists of Qt are compared by memcmp of no bytes at no address.
  add_compile_options(-fsanitize=${ZOLT_SANITIZE} -fno-sanitize=nonnull-attribute -fno-sanitize-recover=all
                      -fno-omit-frame-pointer -O0 -g1)
  add_link_options(-fsanitize=${ZOLT_SANITIZE})
  add_compile_definitions(ZOLT_SANITIZED)
endif()

# zolt_library(name SOURCES ... LINK ...): one room or part of a room. Sees Qt Core and Gui, never Widgets.
function(zolt_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC Qt6::Core Qt6::Gui ${ARG_LINK})
  if(NOT name STREQUAL zolt_base)
    target_link_libraries(${name} PUBLIC zolt_base)
    target_precompile_headers(${name} REUSE_FROM zolt_base)
  endif()
endfunction()

# zolt_module(name SOURCES ... MAP ... LINK ...): a shared object that nothing links, opened on first use
# (platform/desktop/Module.h). Of it nothing shows but what the map names.
function(zolt_module name)
  cmake_parse_arguments(ARG "" "MAP" "SOURCES;LINK" ${ARGN})
  add_library(${name} MODULE ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES PREFIX "" LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_MAP})
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  target_link_options(${name} PRIVATE -Wl,--version-script=${CMAKE_CURRENT_SOURCE_DIR}/${ARG_MAP})
  install(TARGETS ${name} LIBRARY DESTINATION ${ZOLT_MODULE_FOLDER})
endfunction()

# zolt_program(name SOURCES ... LINK ...): an executable without widgets.
function(zolt_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name}_objects OBJECT ${ARG_SOURCES})
  target_link_libraries(${name}_objects PUBLIC Qt6::Core Qt6::Gui zolt_base ${ARG_LINK})
  target_precompile_headers(${name}_objects REUSE_FROM zolt_base)
  add_executable(${name})
  target_link_libraries(${name} PRIVATE ${name}_objects)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} zolt_base Qt6::Core Qt6::Gui)
endfunction()

# zolt_test(name SOURCES ... LINK ...): one test program; ctest runs each of its cases by itself.
function(zolt_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name}_objects OBJECT ${ARG_SOURCES})
  target_link_libraries(${name}_objects PUBLIC zolt_test_support ${ARG_LINK})
  target_precompile_headers(${name}_objects REUSE_FROM zolt_test_support)
  add_executable(${name})
  target_link_libraries(${name} PRIVATE ${name}_objects)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
include(GoogleTest)
