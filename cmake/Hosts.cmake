# Programs that embed the engine. Each is a folder under hosts/.

if(TARGET kel_mcr)
    file(GLOB MCR_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/mcr/*.cpp)
    if(MCR_SOURCES)
        find_package(CLI11 REQUIRED)
        find_package(nlohmann_json REQUIRED)
        add_executable(mcr ${MCR_SOURCES})
        target_compile_definitions(mcr PRIVATE MCR_VERSION="${PROJECT_VERSION}")
        target_link_libraries(mcr PRIVATE kel_mcr::kel_mcr CLI11::CLI11 nlohmann_json::nlohmann_json kel_mcr_flags)
    endif()
endif()
