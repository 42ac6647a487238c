# SPDX-License-Identifier: MIT
# Outside libraries, each wrapped as a target whose headers count as system headers.
include(TarnvikWx)

find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(Boost REQUIRED)
find_package(SQLite3 REQUIRED)
find_package(EXPAT REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(Gettext REQUIRED)
pkg_check_modules(gtk3 REQUIRED IMPORTED_TARGET GLOBAL gtk+-3.0)
pkg_check_modules(x11 REQUIRED IMPORTED_TARGET GLOBAL x11)

# Without it the environment alone names proxies.
option(TARNVIK_LIBPROXY "Ask libproxy for the proxies of the desktop, where it is present" ON)
set(TARNVIK_WITH_LIBPROXY OFF)
if(TARNVIK_LIBPROXY AND NOT WIN32)
  pkg_check_modules(libproxy IMPORTED_TARGET GLOBAL libproxy-1.0)
  if(libproxy_FOUND)
    set(TARNVIK_WITH_LIBPROXY ON)
  endif()
endif()

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

# What most sources include, by what they may use: the standard library, the toolkit without windows, the toolkit.
set(standard_headers <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <optional> <stdexcept>
                     <string> <string_view> <vector> <fmt/format.h>)
set(wx_base_headers ${standard_headers} <wx/string.h> <wx/datetime.h> <wx/translation.h>)
set(wx_headers ${wx_base_headers} <wx/wx.h>)
tarnvik_precompiled_headers(standard LIBS fmt::fmt HEADERS ${standard_headers})
tarnvik_precompiled_headers(wx_base LIBS fmt::fmt wx::base HEADERS ${wx_base_headers})
tarnvik_precompiled_headers(wx LIBS fmt::fmt wx::gui HEADERS ${wx_headers})
if(TARNVIK_TESTS)
  find_package(GTest REQUIRED)
  set(test_headers <gtest/gtest.h> <gmock/gmock.h> <fstream> <sstream>)
  tarnvik_precompiled_headers(test UNOPTIMIZED LIBS fmt::fmt wx::base GTest::gtest GTest::gmock
                              HEADERS ${wx_base_headers} ${test_headers})
  tarnvik_precompiled_headers(gui_test UNOPTIMIZED LIBS fmt::fmt wx::gui GTest::gtest GTest::gmock
                              HEADERS ${wx_headers} ${test_headers})
endif()
