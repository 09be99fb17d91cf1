# Common compile settings and the one way a folder becomes a library.

set(ORVANE_WARNINGS -Wall -Wextra -Wpedantic)
# GCC 12 reports false -Wrestrict overlaps inside libstdc++'s std::string at -O2
# (GCC bug 105329); the warning says nothing about our code there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND ORVANE_WARNINGS -Wno-restrict)
endif()
if(ORVANE_WERROR)
  list(APPEND ORVANE_WARNINGS -Werror)
endif()

if(ORVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

# orvane_library(<folder>): every *.cpp directly in the folder becomes the static
# library orvane_<folder>; headers are included as "<folder>/<name>.h" from the root.
function(orvane_library folder)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  set(target orvane_${folder})
  if(sources)
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    target_compile_options(${target} PRIVATE ${ORVANE_WARNINGS})
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${PROJECT_SOURCE_DIR})
    set(scope INTERFACE)
  endif()
  if(ARGN)
    target_link_libraries(${target} ${scope} ${ARGN})
  endif()
  add_library(orvane::${folder} ALIAS ${target})
endfunction()

# orvane_test(<name> <libs...>): every *.cpp in tests/<name>/ becomes test_<name>,
# run by CTest test by test.
function(orvane_test name)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources})
  target_compile_options(test_${name} PRIVATE ${ORVANE_WARNINGS})
  target_compile_definitions(test_${name} PRIVATE
    ORVANE_SHARED_DIR="${ORVANE_SHARED_DIR}"
    ORVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    ORVANE_BINARY_DIR="${PROJECT_BINARY_DIR}")
  target_link_libraries(test_${name} PRIVATE ${ARGN} orvane_testsupport GTest::gtest GTest::gtest_main)
  gtest_discover_tests(test_${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
