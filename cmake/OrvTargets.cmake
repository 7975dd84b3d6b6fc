# Rules that hold for every target of the project.

include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

add_library(orv_compile_rules INTERFACE)
target_compile_options(orv_compile_rules INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-align -Wnull-dereference
  $<$<BOOL:${ORV_WARNINGS_AS_ERRORS}>:-Werror>)
# Optimising, g++ 12 sees null dereferences and overlapping copies in its own string library where
# there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(orv_compile_rules INTERFACE -Wno-null-dereference -Wno-restrict)
endif()

if(ORV_SANITIZE)
  add_compile_options(-fsanitize=${ORV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ORV_SANITIZE})
endif()

# orv_library(TARGET KIND FOLDER LINKS ... PRIVATE_LINKS ...)
#
# A library of all sources of one folder below src/. Its headers are seen as "FOLDER/name.h" by the
# targets that link it and by no other: each target publishes an include directory of its own, in
# which only its folder exists. An include of a folder that is not linked therefore does not compile.
function(orv_library target kind folder)
  cmake_parse_arguments(ARG "" "" "LINKS;PRIVATE_LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp")
  add_library(${target} ${kind} ${sources})
  set(root "${CMAKE_BINARY_DIR}/include/${target}")
  cmake_path(GET folder PARENT_PATH parent)
  file(MAKE_DIRECTORY "${root}/${parent}")
  file(CREATE_LINK "${PROJECT_SOURCE_DIR}/src/${folder}" "${root}/${folder}" SYMBOLIC)
  target_include_directories(${target} PUBLIC "${root}")
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE orv_compile_rules ${ARG_PRIVATE_LINKS})
endfunction()

# orv_program(TARGET SOURCES ... LINKS ...)
function(orv_program target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE orv_compile_rules ${ARG_LINKS})
endfunction()

# orv_test(TARGET LINKS ...)
#
# A test program of all sources of the current folder. It is run twice: under the user's locale and,
# where CMake found or made one, under a locale that writes a decimal comma.
function(orv_test target)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  orv_program(${target} SOURCES ${sources} LINKS ${ARG_LINKS} test_support GTest::gmock)
  target_compile_definitions(${target} PRIVATE
    ORV_TEST_FOLDER="${CMAKE_CURRENT_SOURCE_DIR}" ORV_BIN_FOLDER="${CMAKE_BINARY_DIR}/bin")
  add_test(NAME ${target} COMMAND ${target})
  set(tests ${target})
  if(ORV_COMMA_LOCALE_FOLDER)
    add_test(NAME ${target}_comma_locale COMMAND ${target})
    set_tests_properties(${target}_comma_locale PROPERTIES
      ENVIRONMENT "LOCPATH=${ORV_COMMA_LOCALE_FOLDER};LC_ALL=de_DE.UTF-8;ORV_EXPECT_COMMA_LOCALE=1")
    list(APPEND tests ${target}_comma_locale)
  endif()
  if(ORV_SANITIZE)
    set(suppressions "${PROJECT_SOURCE_DIR}/cmake/leak_suppressions.txt")
    set_property(TEST ${tests} APPEND PROPERTY
      ENVIRONMENT "LSAN_OPTIONS=suppressions=${suppressions}:print_suppressions=0")
  endif()
endfunction()
