# SPDX-License-Identifier: MIT
# cmake -DBUILD=... -DSOURCE=... -DTYPE=... -P check_installation.cmake
# Installs the build into a fresh folder, runs the installed program from there, and builds and runs a project that uses the
# installed libraries.
set(work "${BUILD}/package_test")
set(prefix "${work}/installed")
file(REMOVE_RECURSE "${work}")

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}")

# Nothing of the build folder may be needed.
set(ENV{TARNVIK_USER_DATA} "${work}/user")
set(example "${prefix}/share/tarnvik/examples/world_river_livingstone.tarnvik")
execute_process(COMMAND "${prefix}/bin/tarnvik" calc "${example}" OUTPUT_VARIABLE results COMMAND_ERROR_IS_FATAL ANY)
if(NOT results MATCHES "Ionic strength +0\\.0021")
  message(FATAL_ERROR "The installed program calculated:\n${results}")
endif()
run("${CMAKE_COMMAND}" -E env --unset=DISPLAY "${prefix}/bin/tarnvik" report "${example}" -o "${work}/report.pdf" --language de)
execute_process(COMMAND pdftotext "${work}/report.pdf" - OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
if(NOT text MATCHES "Ionenbilanz")
  message(FATAL_ERROR "The installed program reported:\n${text}")
endif()
foreach(file applications/tarnvik.desktop mime/packages/tarnvik.xml icons/hicolor/scalable/apps/tarnvik.svg
             tarnvik/help/tarnvik6.htb tarnvik/help/de/tarnvik6.htb tarnvik/help/fr/tarnvik6.htb tarnvik/tnbase.zrc
             tarnvik/locale/de/LC_MESSAGES/tarnvik.mo tarnvik/locale/fr/LC_MESSAGES/tarnvik.mo)
  if(NOT EXISTS "${prefix}/share/${file}")
    message(FATAL_ERROR "The installation lacks share/${file}")
  endif()
endforeach()

run("${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}/tests/package" -B "${work}/consumer" "-DCMAKE_PREFIX_PATH=${prefix}"
    "-DCMAKE_BUILD_TYPE=${TYPE}")
run("${CMAKE_COMMAND}" --build "${work}/consumer")
set(ENV{TARNVIK_DATA} "${prefix}/share/tarnvik")
run("${work}/consumer/consumer")
file(REMOVE_RECURSE "${work}")
