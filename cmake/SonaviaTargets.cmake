# How every target of this project is made: one place for warnings, floating-point rules and test surroundings.

add_library(sonavia_options INTERFACE)
if(MSVC)
  # /fp:precise keeps results equal to those of the other compilers.
  target_compile_options(sonavia_options INTERFACE /W4 /utf-8 /fp:precise $<$<BOOL:${SONAVIA_WERROR}>:/WX>)
  target_compile_definitions(sonavia_options INTERFACE _CRT_SECURE_NO_WARNINGS NOMINMAX)
else()
  # A recording gives the same bits on every machine: multiply and add are never fused.
  target_compile_options(sonavia_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -ffp-contract=off
    $<$<BOOL:${SONAVIA_WERROR}>:-Werror>)
endif()
target_compile_definitions(sonavia_options INTERFACE
  QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS)
if(SONAVIA_SANITIZE)
  add_compile_options(-fsanitize=${SONAVIA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${SONAVIA_SANITIZE})
endif()

# sonavia_library(NAME SOURCES file... LINKS target...)
#   The static library sonavia_NAME of one folder; includes are written from the repository root.
function(sonavia_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(sonavia_${name} STATIC ${ARG_SOURCES})
  target_include_directories(sonavia_${name} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(sonavia_${name} PUBLIC ${ARG_LINKS} PRIVATE sonavia_options)
endfunction()

# sonavia_test(NAME [SOURCES file...] LINKS target... [TIMEOUT s] [ENVIRONMENT VAR=value...])
#   A Qt Test program under CTest. It runs without a display, with a settings store and a locale of its own.
function(sonavia_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINKS;ENVIRONMENT" ${ARGN})
  if(NOT ARG_SOURCES)
    set(ARG_SOURCES ${name}.cpp)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} sonavia_test_support Qt5::Test sonavia_options)
  add_test(NAME ${name} COMMAND ${name})
  set(home "${CMAKE_BINARY_DIR}/test-homes/${name}")
  file(MAKE_DIRECTORY "${home}/config" "${home}/runtime")
  file(CHMOD "${home}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${ARG_TIMEOUT}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_RUNTIME_DIR=${home}/runtime;QTEST_FUNCTION_TIMEOUT=60000;QT_GSTREAMER_PLAYBIN_AUDIOSINK=fakesink;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;${ARG_ENVIRONMENT}")
endfunction()
