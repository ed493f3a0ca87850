# The libraries that are not ours. A cross-build takes what consists of headers or sources from the
# build machine's packages, and the others from the folder that scripts/windows-libraries fills.

find_package(SQLite3 REQUIRED)
if(DG_TESTS)
  find_package(ZLIB REQUIRED)
endif()

if(NOT CMAKE_CROSSCOMPILING)
  find_package(CLI11 REQUIRED)
  find_package(nlohmann_json REQUIRED)
  if(DG_TESTS)
    find_package(GTest REQUIRED)
  endif()
  return()
endif()

# Only the library's own folder is exposed: the folder around it holds the build machine's headers.
function(dg_headers target folder)
  set(link_dir ${PROJECT_BINARY_DIR}/include/${folder})
  file(MAKE_DIRECTORY ${link_dir})
  file(CREATE_LINK /usr/include/${folder} ${link_dir}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} INTERFACE ${link_dir})
endfunction()

dg_headers(CLI11::CLI11 CLI)
dg_headers(nlohmann_json::nlohmann_json nlohmann)

find_library(DG_XLSXWRITER xlsxwriter REQUIRED)
find_path(DG_XLSXWRITER_INCLUDE xlsxwriter.h REQUIRED)
find_package(ZLIB REQUIRED)
add_library(xlsxwriter STATIC IMPORTED)
set_target_properties(xlsxwriter PROPERTIES
  IMPORTED_LOCATION ${DG_XLSXWRITER}
  INTERFACE_INCLUDE_DIRECTORIES ${DG_XLSXWRITER_INCLUDE}
  INTERFACE_LINK_LIBRARIES ZLIB::ZLIB)

if(DG_TESTS)
  set(BUILD_GMOCK ON)
  set(INSTALL_GTEST OFF)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
