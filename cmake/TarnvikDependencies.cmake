# SPDX-License-Identifier: MIT
# Outside libraries, each wrapped as a target whose headers count as system headers.
function(tarnvik_wx target)
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS ${ARGN})
  if(NOT TARGET ${target})
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
    target_compile_definitions(${target} INTERFACE ${wxWidgets_DEFINITIONS})
    target_compile_options(${target} INTERFACE ${wxWidgets_CXX_FLAGS})
    target_link_libraries(${target} INTERFACE ${wxWidgets_LIBRARIES})
  endif()
endfunction()

tarnvik_wx(wx::base base)
tarnvik_wx(wx::gui aui html xml core base)

find_package(fmt REQUIRED)
find_package(Boost REQUIRED)
find_package(SQLite3 REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(Gettext REQUIRED)
pkg_check_modules(gtk3 REQUIRED IMPORTED_TARGET GLOBAL gtk+-3.0)

pkg_check_modules(libpq REQUIRED IMPORTED_TARGET GLOBAL libpq)

# The database layer comes without package files of its own.
foreach(part core sqlite3 postgresql)
  if(NOT TARGET soci::${part})
    find_library(SOCI_${part}_LIBRARY soci_${part} REQUIRED)
    add_library(soci::${part} INTERFACE IMPORTED GLOBAL)
    target_link_libraries(soci::${part} INTERFACE "${SOCI_${part}_LIBRARY}")
  endif()
endforeach()
target_link_libraries(soci::postgresql INTERFACE PkgConfig::libpq)
