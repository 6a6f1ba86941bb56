# SPDX-License-Identifier: MIT
# Tests in other locales than the one of the whole suite.

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

# Text files are written as the locale says: once more in the C locale.
if(TARGET tst_text_files)
    add_test(NAME text_files_c_locale
        COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C $<TARGET_FILE:tst_text_files>)
endif()
