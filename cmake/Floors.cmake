# pellora_floor(NAME FOLDER [FLOORS...]): the sources of one folder (not of its subfolders) as a static library
# pellora_NAME that links the floors it stands on.
function(pellora_floor name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  list(TRANSFORM ARGN PREPEND pellora_ OUTPUT_VARIABLE below)
  if(sources)
    add_library(pellora_${name} STATIC ${sources})
    target_include_directories(pellora_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(pellora_${name} PUBLIC ${below})
  else()
    add_library(pellora_${name} INTERFACE)
    target_include_directories(pellora_${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(pellora_${name} INTERFACE ${below})
  endif()
endfunction()

# pellora_host(NAME [LIBRARIES...]): the spreadsheet host of the folder tests/hosts/NAME, with what all hosts share, as a
# static library pellora_host_NAME. A program of tests is linked with one; it brings its own main().
function(pellora_host name)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/hosts/*.cpp
       ${PROJECT_SOURCE_DIR}/tests/hosts/${name}/*.cpp)
  add_library(pellora_host_${name} STATIC ${sources})
  target_include_directories(pellora_host_${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(pellora_host_${name} PUBLIC pellora_core ${ARGN} GTest::gmock)
endfunction()

# Tests are compiled far more often than their speed would matter: without optimisation, and of the sanitizers with the
# one that also watches what they do to the library's memory. The library itself is built in full.
add_library(pellora_test_options INTERFACE)
target_compile_options(pellora_test_options INTERFACE -O0 $<$<BOOL:${PELLORA_SANITIZE}>:-fno-sanitize=undefined>)

# pellora_test(NAME FOLDER [LIBRARIES...]): the sources of one folder of tests as a program test_NAME, one ctest test
# for the program. Does nothing for a folder without sources.
function(pellora_test name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources})
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(test_${name} PRIVATE PELLORA_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(test_${name} PRIVATE ${ARGN} pellora_test_options GTest::gmock_main)
  if(NOT WIN32)
    add_test(NAME ${name} COMMAND test_${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  endif()
endfunction()
