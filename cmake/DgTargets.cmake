# What all targets share, and the rule that keeps the layers apart.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(dg_options INTERFACE)
target_compile_options(dg_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
  # GCC 12 sees overlapping copies in std::string's own insert once it is inlined. Not in debug
  # builds, whose commands clang-tidy reads: it does not know the option.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-restrict>
  $<$<BOOL:${DG_WERROR}>:-Werror>)
if(DG_SANITIZE)
  target_compile_options(dg_options INTERFACE
    -fsanitize=${DG_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    # GCC sees uninitialised values in what the sanitizers add to sound code.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(dg_options INTERFACE -fsanitize=${DG_SANITIZE})
endif()

if(DG_FUZZ)
  target_compile_options(dg_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# dg_layer(NAME layers it may use...)
#
# A static library of all sources of the current folder. Headers are included as "NAME/header.h".
# Each layer is visible through a link of its own in the build tree, so that a source can include
# only the layers that its target names: a forbidden include does not compile.
function(dg_layer name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources} ${headers})
  dg_expose(${name} ${name})
  target_link_libraries(${name} PUBLIC ${ARGN} PRIVATE dg_options)
endfunction()

# Lets users of `target` include this folder's headers as "folder/header.h".
function(dg_expose target folder)
  string(MAKE_C_IDENTIFIER ${folder} room)
  set(root ${PROJECT_BINARY_DIR}/include/${room})
  cmake_path(GET folder PARENT_PATH above)
  file(MAKE_DIRECTORY ${root}/${above})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${root})
endfunction()

# Installs a text compressed, as Debian has its manuals and change logs; the third argument is its
# name where that differs. The time stays out of it, so that one source gives one package.
find_program(DG_GZIP gzip)
function(dg_install_compressed file destination)
  cmake_path(GET file FILENAME name)
  if(ARGC GREATER 2)
    set(name ${ARGV2})
  endif()
  if(NOT DG_GZIP)
    install(FILES ${file} DESTINATION ${destination} RENAME ${name})
    return()
  endif()
  set(compressed ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND ${DG_GZIP} -9 -n -c ${file} > ${compressed} DEPENDS ${file} VERBATIM)
  add_custom_target(compress_${name} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()

# Icon, version and manifest of a program; elsewhere than on Windows a program carries none.
function(dg_windows_resource target description)
  if(NOT WIN32)
    return()
  endif()
  set(DG_RC_NAME ${target})
  set(DG_RC_DESCRIPTION ${description})
  set(DG_RC_FOLDER ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${DG_RC_FOLDER}/program.rc.in ${resource} @ONLY)
  set_source_files_properties(${resource} PROPERTIES
    OBJECT_DEPENDS "${DG_RC_FOLDER}/dealergauge.ico;${DG_RC_FOLDER}/program.manifest")
  target_sources(${target} PRIVATE ${resource})
endfunction()
