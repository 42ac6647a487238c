# SPDX-License-Identifier: MIT
# The locales that the tests switch to, generated into the build folder: nothing depends on what the system has.
# Afterwards TARNVIK_TEST_LOCPATH names their folder, for LOCPATH in the environment of a test.
set(TARNVIK_TEST_LOCPATH "${CMAKE_BINARY_DIR}/tests/locales")
find_program(LOCALEDEF localedef REQUIRED)

set(locale_files)
# The C library finds "de_DE.utf8" under that name and as "de_DE.UTF-8".
foreach(locale de_DE fr_FR en_US de_CH)
  set(folder "${TARNVIK_TEST_LOCPATH}/${locale}.utf8")
  add_custom_command(
    OUTPUT "${folder}/LC_NUMERIC"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
    COMMAND "${LOCALEDEF}" --no-archive -i ${locale} -f UTF-8 "${folder}"
    COMMENT "Generating the locale ${locale}.UTF-8"
    VERBATIM)
  list(APPEND locale_files "${folder}/LC_NUMERIC")
endforeach()
add_custom_target(tarnvik_test_locales DEPENDS ${locale_files})
