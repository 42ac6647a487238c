# SPDX-License-Identifier: MIT
# Outside libraries, each wrapped as a target whose headers count as system headers.
include(TarnvikWx)

find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(Boost REQUIRED)
find_package(SQLite3 REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(Gettext REQUIRED)
pkg_check_modules(gtk3 REQUIRED IMPORTED_TARGET GLOBAL gtk+-3.0)

pkg_check_modules(re2 REQUIRED IMPORTED_TARGET GLOBAL re2)
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
