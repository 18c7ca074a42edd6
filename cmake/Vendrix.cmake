# Helpers shared by every target of the project.

# Our own code is warning-free, and with VENDRIX_WERROR warnings are errors;
# Qt keywords are off so that `signals`, `slots` and `emit` never clash with
# other libraries.
function(vendrix_target_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
  if(VENDRIX_WERROR)
    target_compile_options(${target} PRIVATE -Werror -Wno-error=deprecated-declarations)
  endif()
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH)
endfunction()

# A library made of every source file of one folder under src/.
# Usage: vendrix_library(core LIBS Qt6::Core ...); RECURSE to take the
# subfolders' files too.
function(vendrix_library name)
  cmake_parse_arguments(ARG "RECURSE" "" "LIBS" ${ARGN})
  set(glob GLOB)
  if(ARG_RECURSE)
    set(glob GLOB_RECURSE)
  endif()
  file(${glob} sources CONFIGURE_DEPENDS
       ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
       ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
  add_library(vendrix_${name} STATIC ${sources})
  target_include_directories(vendrix_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src
                                                    ${CMAKE_BINARY_DIR}/generated)
  target_link_libraries(vendrix_${name} PUBLIC ${ARG_LIBS})
  vendrix_target_options(vendrix_${name})
endfunction()

# A test program made of every source file of one folder under tests/.
# Usage: vendrix_tests(core LIBS vendrix_core); NO_GTEST_MAIN when the folder
# has its own main (widget tests create a QApplication first); RECURSE to take
# the subfolders' files too.
function(vendrix_tests name)
  cmake_parse_arguments(ARG "NO_GTEST_MAIN;RECURSE" "" "LIBS" ${ARGN})
  set(gtest_main GTest::gtest_main)
  if(ARG_NO_GTEST_MAIN)
    set(gtest_main "")
  endif()
  set(glob GLOB)
  if(ARG_RECURSE)
    set(glob GLOB_RECURSE)
  endif()
  file(${glob} sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_executable(test_${name} ${sources})
  target_link_libraries(test_${name} PRIVATE ${ARG_LIBS} vendrix_test_support
                                             GTest::gtest GTest::gmock ${gtest_main})
  target_compile_definitions(test_${name} PRIVATE
    VENDRIX_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    VENDRIX_SEED_DIR="${CMAKE_BINARY_DIR}/data")
  vendrix_target_options(test_${name})
  gtest_discover_tests(test_${name}
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
    DISCOVERY_TIMEOUT 60)
endfunction()
