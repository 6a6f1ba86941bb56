# SPDX-License-Identifier: MIT
# A locale with a decimal comma, in a folder of the build: a machine seldom has one ready. CommaLocale looks for it
# there.

set(KX_TEST_LOCALES "${CMAKE_CURRENT_BINARY_DIR}/locales")
find_program(KX_LOCALEDEF localedef REQUIRED)
add_custom_command(OUTPUT "${KX_TEST_LOCALES}/de_DE.UTF-8/LC_NUMERIC"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${KX_TEST_LOCALES}"
    COMMAND "${KX_LOCALEDEF}" --inputfile=de_DE --charmap=UTF-8 "${KX_TEST_LOCALES}/de_DE.UTF-8"
    COMMENT "Making the locale de_DE.UTF-8"
    VERBATIM)
add_custom_target(test_locales ALL DEPENDS "${KX_TEST_LOCALES}/de_DE.UTF-8/LC_NUMERIC")

foreach(test IN ITEMS data_exchange_text platform_text)
    if(TARGET tst_${test})
        target_compile_definitions(tst_${test} PRIVATE "KX_TEST_LOCALES=\"${KX_TEST_LOCALES}\"")
    endif()
endforeach()
