# SPDX-License-Identifier: MIT
# Compiler settings and the one way in which libraries and programs of this project are declared.
include(CheckLinkerFlag)
include(GenerateExportHeader)
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The build tree is laid out like an installation, so that the program finds its data the same way in both.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(TARNVIK_DATA_DIR "${CMAKE_BINARY_DIR}/share/tarnvik")
file(MAKE_DIRECTORY "${TARNVIK_DATA_DIR}")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Precompiled headers need the relaxed comparison of macros and time stamps. The compiler's own list of dependencies
  # spares a pass of the preprocessor over each source that is not in the cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env CCACHE_DEPEND=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime "${CCACHE_PROGRAM}")
endif()

# The fastest linker at hand; without one the compiler's own.
foreach(linker IN ITEMS mold lld)
  check_linker_flag(CXX "-fuse-ld=${linker}" TARNVIK_LINKER_${linker})
  if(TARNVIK_LINKER_${linker})
    add_link_options("-fuse-ld=${linker}")
    break()
  endif()
endforeach()

# tarnvik_target_settings(TARGET [UNOPTIMIZED]): warnings and sanitizers. Under the sanitizers the product is optimized a
# little, since it is what runs; tests are not, since most of their time goes into the compiler.
function(tarnvik_target_settings target)
  cmake_parse_arguments(ARG "UNOPTIMIZED" "" "" ${ARGN})
  # Threads for all alike: a header compiled ahead for one target with them is refused by another without.
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -pthread)
  if(CCACHE_PROGRAM AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
  if(TARNVIK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(TARNVIK_SANITIZE)
    # The database layer exports no type information for its internals, which the vptr check would link against.
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=undefined
                                             -fno-omit-frame-pointer)
    if(NOT ARG_UNOPTIMIZED)
      target_compile_options(${target} PRIVATE -O1)
    endif()
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
  if(TARNVIK_SANITIZE_THREADS)
    target_compile_options(${target} PRIVATE -fsanitize=thread -fno-omit-frame-pointer)
    if(NOT ARG_UNOPTIMIZED)
      target_compile_options(${target} PRIVATE -O1)
    endif()
    target_link_options(${target} PRIVATE -fsanitize=thread)
  endif()
  if(TARNVIK_FUZZ)
    # The fuzzer sees which branches of the libraries its input has reached.
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    # Checksums do not keep random input from the readers behind them.
    target_compile_definitions(${target} PRIVATE FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION)
  endif()
endfunction()

# tarnvik_precompiled_headers(KIND [UNOPTIMIZED] LIBS ... HEADERS ...): headers that are compiled once for all targets which
# say tarnvik_precompile(TARGET KIND). LIBS are what these headers come with.
function(tarnvik_precompiled_headers kind)
  cmake_parse_arguments(ARG "UNOPTIMIZED" "" "LIBS;HEADERS" ${ARGN})
  set(owner tarnvik_headers_${kind})
  add_library(${owner} OBJECT EXCLUDE_FROM_ALL "${PROJECT_SOURCE_DIR}/cmake/precompiled_headers.cpp")
  if(ARG_UNOPTIMIZED)
    tarnvik_target_settings(${owner} UNOPTIMIZED)
  else()
    tarnvik_target_settings(${owner})
  endif()
  target_link_libraries(${owner} PUBLIC ${ARG_LIBS})
  target_precompile_headers(${owner} PRIVATE ${ARG_HEADERS})
endfunction()

function(tarnvik_precompile target kind)
  get_target_property(libs tarnvik_headers_${kind} LINK_LIBRARIES)
  target_link_libraries(${target} PRIVATE ${libs})
  target_precompile_headers(${target} REUSE_FROM tarnvik_headers_${kind})
  # The headers are compiled for libraries; the compiler refuses them to objects for programs only.
  target_compile_options(${target} PRIVATE -fPIC)
endfunction()

# tarnvik_library(NAME [HEADER_ROOT dir] [LIBS ...] [PRIVATE_LIBS ...] [PRECOMPILED kind])
# A shared library of all sources below the current folder, exported under tarnvik::NAME. A super-project that
# brings its own target of that name replaces it. Its export macro stands in <NAME>/<NAME>_export.h.
function(tarnvik_library name)
  cmake_parse_arguments(ARG "" "HEADER_ROOT;PRECOMPILED" "LIBS;PRIVATE_LIBS;EXCLUDE" ${ARGN})
  if(TARGET tarnvik::${name})
    return()
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  foreach(pattern IN LISTS ARG_EXCLUDE)
    list(FILTER sources EXCLUDE REGEX "${pattern}")
  endforeach()
  add_library(${name} SHARED ${sources})
  add_library(tarnvik::${name} ALIAS ${name})
  tarnvik_target_settings(${name})
  set(generated "${CMAKE_BINARY_DIR}/include")
  generate_export_header(${name} EXPORT_FILE_NAME "${generated}/${name}/${name}_export.h")
  target_include_directories(${name} PUBLIC "$<BUILD_INTERFACE:${ARG_HEADER_ROOT}>"
                                            "$<BUILD_INTERFACE:${generated}>"
                                            "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tarnvik>")
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PUBLIC ${ARG_LIBS} PRIVATE ${ARG_PRIVATE_LIBS})
  if(ARG_PRECOMPILED)
    tarnvik_precompile(${name} ${ARG_PRECOMPILED})
  endif()
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  install(TARGETS ${name} EXPORT tarnvikTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${ARG_HEADER_ROOT}" OUTPUT_VARIABLE inner)
  install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/tarnvik/${inner}"
          FILES_MATCHING PATTERN "*.h")
  install(FILES "${generated}/${name}/${name}_export.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/tarnvik/${name}")
endfunction()
