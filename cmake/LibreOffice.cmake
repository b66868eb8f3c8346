# The development kit of LibreOffice: finds it, makes the C++ headers of its types once, and gives `pellora_kit`, what
# code that speaks to the office program compiles and links against.
find_program(PELLORA_CPPUMAKER cppumaker PATHS /usr/lib/libreoffice/sdk/bin /usr/lib64/libreoffice/sdk/bin REQUIRED)
find_program(PELLORA_UNOIDL_WRITE unoidl-write PATHS /usr/lib/libreoffice/sdk/bin /usr/lib64/libreoffice/sdk/bin REQUIRED)
get_filename_component(PELLORA_KIT ${PELLORA_CPPUMAKER} DIRECTORY)
get_filename_component(PELLORA_KIT ${PELLORA_KIT} DIRECTORY)
get_filename_component(office ${PELLORA_KIT} DIRECTORY)
find_path(PELLORA_KIT_INCLUDE cppuhelper/implbase3.hxx PATHS /usr/include/libreoffice ${PELLORA_KIT}/include REQUIRED)

set(PELLORA_OFFICE_TYPES ${office}/program/types.rdb ${office}/program/types/offapi.rdb)
set(PELLORA_KIT_HEADERS ${PROJECT_BINARY_DIR}/kit)
if(NOT EXISTS ${PELLORA_KIT_HEADERS}/made)
  message(STATUS "Making the headers of the office's types")
  execute_process(COMMAND ${PELLORA_CPPUMAKER} -Gc -O${PELLORA_KIT_HEADERS} ${PELLORA_OFFICE_TYPES} COMMAND_ERROR_IS_FATAL ANY)
  file(TOUCH ${PELLORA_KIT_HEADERS}/made)
endif()

add_library(pellora_kit INTERFACE)
# Others' headers: our own warnings are not for them.
target_include_directories(pellora_kit SYSTEM INTERFACE ${PELLORA_KIT_HEADERS} ${PELLORA_KIT_INCLUDE})
target_compile_definitions(pellora_kit INTERFACE CPPU_ENV=gcc3 LINUX UNX GCC)
target_link_directories(pellora_kit INTERFACE ${office}/program ${PELLORA_KIT}/lib)
target_link_libraries(pellora_kit INTERFACE uno_cppu uno_cppuhelpergcc3 uno_sal uno_salhelpergcc3)
