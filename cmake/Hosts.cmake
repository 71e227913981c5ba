# Programs that embed the engine. Each is a folder under hosts/.

if(TARGET kel_mcr)
    file(GLOB MCR_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/mcr/*.cpp
         ${PROJECT_SOURCE_DIR}/hosts/mcr/debug/*.cpp)
    if(MCR_SOURCES)
        find_package(CLI11 REQUIRED)
        find_path(LIBEDIT_INCLUDE_DIR histedit.h REQUIRED)
        find_library(LIBEDIT_LIBRARY edit REQUIRED)
        add_executable(mcr ${MCR_SOURCES})
        target_compile_definitions(mcr PRIVATE MCR_VERSION="${PROJECT_VERSION}")
        target_include_directories(mcr PRIVATE ${LIBEDIT_INCLUDE_DIR})
        target_link_libraries(mcr PRIVATE kel_mcr::kel_mcr CLI11::CLI11 ${LIBEDIT_LIBRARY}
                              kel_mcr_flags)
    endif()
endif()
