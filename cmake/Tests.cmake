# One program with all tests, one entry in ctest for each of its suites, and the example hosts.

find_package(GTest REQUIRED)

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
            kel_mcr::kel_mcr kel_mcr_scripting GTest::gtest kel_mcr_flags)
        foreach(program IN LISTS EXAMPLES ITEMS mcr)
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
