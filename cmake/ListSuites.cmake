# Read by ctest: makes an entry for each suite of TEST_PROGRAM. A program that is missing or does
# not answer becomes an entry that fails.

set(suites "")
if(EXISTS "${TEST_PROGRAM}")
    execute_process(COMMAND "${TEST_PROGRAM}" --gtest_list_tests
                    OUTPUT_VARIABLE listing RESULT_VARIABLE result)
    if(result EQUAL 0)
        string(REPLACE ";" " " listing "${listing}")
        string(REPLACE "\n" ";" lines "${listing}")
        foreach(line IN LISTS lines)
            if(line MATCHES "^([A-Za-z_][^ ]*)\\.( |$)")
                list(APPEND suites "${CMAKE_MATCH_1}")
            endif()
        endforeach()
    endif()
endif()

if(NOT suites)
    add_test(kel_mcr_tests "${TEST_PROGRAM}" --gtest_list_tests)
    add_test(kel_mcr_tests_has_suites /bin/false)
endif()
foreach(suite IN LISTS suites)
    add_test("${suite}" "${TEST_PROGRAM}" "--gtest_filter=${suite}.*" --gtest_brief=1)
    set_tests_properties("${suite}" PROPERTIES WORKING_DIRECTORY "${TEST_FOLDER}" TIMEOUT 600)
endforeach()
