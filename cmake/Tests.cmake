# One program with all tests, one entry in ctest for each of its suites, and the example hosts.

find_package(GTest REQUIRED)
find_package(nlohmann_json REQUIRED)

configure_file(${CMAKE_CURRENT_LIST_DIR}/TestPaths.h.in ${GENERATED_DIR}/TestPaths.h @ONLY)

if(TARGET kel_mcr)
    # Example hosts: every examples/NAME.cpp is a program of its own.
    file(GLOB EXAMPLE_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/examples/*.cpp)
    set(EXAMPLES "")
    foreach(source IN LISTS EXAMPLE_SOURCES)
        cmake_path(GET source STEM name)
        add_executable(${name} ${source})
        target_link_libraries(${name} PRIVATE kel_mcr::kel_mcr kel_mcr_flags)
        list(APPEND EXAMPLES ${name})
    endforeach()

    file(GLOB_RECURSE TEST_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/*.cpp)
    if(TEST_SOURCES)
        add_executable(kel_mcr_tests ${TEST_SOURCES})
        target_include_directories(kel_mcr_tests PRIVATE
            ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests ${GENERATED_DIR})
        target_link_libraries(kel_mcr_tests PRIVATE
            kel_mcr::kel_mcr kel_mcr_scripting GTest::gtest nlohmann_json::nlohmann_json
            kel_mcr_flags)
        foreach(program IN LISTS EXAMPLES ITEMS mcr sketch)
            if(TARGET ${program})
                add_dependencies(kel_mcr_tests ${program})
            endif()
        endforeach()

        # The suites are listed when ctest runs: one process for each suite instead of one for
        # each test keeps a run short.
        set(entries ${PROJECT_BINARY_DIR}/TestSuites.cmake)
        file(WRITE ${entries}
            "set(TEST_PROGRAM \"${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/kel_mcr_tests\")\n"
            "set(TEST_FOLDER \"${PROJECT_SOURCE_DIR}\")\n"
            "include(\"${CMAKE_CURRENT_LIST_DIR}/ListSuites.cmake\")\n")
        set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${entries})
    endif()
endif()

# The installed package, in both forms of the library. A sanitizer would have to be repeated by
# whoever links the package, so only plain builds check it.
if(TARGET kel_mcr AND NOT KEL_MCR_SANITIZE AND NOT KEL_MCR_COVERAGE)
    set(other_form ON)
    if(BUILD_SHARED_LIBS)
        set(other_form OFF)
    endif()
    set(other_build ${PROJECT_BINARY_DIR}/other_form)
    set(check ${PROJECT_SOURCE_DIR}/tests/package/check)
    set(host ${PROJECT_SOURCE_DIR}/examples/host_minimal.cpp)
    add_test(NAME Package.thisForm
             COMMAND ${check} ${PROJECT_BINARY_DIR} ${PROJECT_BINARY_DIR}/package/this ${host})
    add_test(NAME Package.buildOtherForm
             COMMAND ${CMAKE_CTEST_COMMAND} --build-and-test ${PROJECT_SOURCE_DIR} ${other_build}
                     --build-generator ${CMAKE_GENERATOR} --build-noclean --build-options
                     -DBUILD_SHARED_LIBS=${other_form} -DKEL_MCR_TESTS=OFF -DKEL_MCR_BENCH=OFF)
    add_test(NAME Package.otherForm
             COMMAND ${check} ${other_build} ${PROJECT_BINARY_DIR}/package/other ${host})
    set_tests_properties(Package.buildOtherForm PROPERTIES
                         FIXTURES_SETUP other_form RUN_SERIAL ON TIMEOUT 1800)
    set_tests_properties(Package.otherForm PROPERTIES FIXTURES_REQUIRED other_form)
endif()
