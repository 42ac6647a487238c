# SPDX-License-Identifier: MIT
# The toolkit as targets whose headers count as system headers: wx::base without windows, wx::gui with them. Also part of
# the installed package.
function(tarnvik_wx target)
  if(TARGET ${target})
    return()
  endif()
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS ${ARGN})
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_definitions(${target} INTERFACE ${wxWidgets_DEFINITIONS})
  target_compile_options(${target} INTERFACE ${wxWidgets_CXX_FLAGS})
  target_link_libraries(${target} INTERFACE ${wxWidgets_LIBRARIES})
endfunction()

tarnvik_wx(wx::base base)
tarnvik_wx(wx::xml xml base)
tarnvik_wx(wx::gui aui html xml core base)
