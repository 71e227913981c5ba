# Programs that embed the engine, and the libraries that they share. Each is a folder under hosts/.

if(TARGET kel_mcr)
    find_package(CLI11 REQUIRED)
    find_package(nlohmann_json REQUIRED)
    find_path(LIBEDIT_INCLUDE_DIR histedit.h REQUIRED)
    find_library(LIBEDIT_LIBRARY edit REQUIRED)

    # The automation classes that macros expect everywhere; a host calls scripting::Register().
    file(GLOB SCRIPTING_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/scripting/*.cpp)
    add_library(kel_mcr_scripting STATIC ${SCRIPTING_SOURCES})
    add_library(kel_mcr::kel_mcr_scripting ALIAS kel_mcr_scripting)
    target_include_directories(kel_mcr_scripting PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/hosts/scripting>
        $<INSTALL_INTERFACE:include/kel_mcr>)
    target_link_libraries(kel_mcr_scripting
        PUBLIC kel_mcr::kel_mcr PRIVATE $<BUILD_INTERFACE:kel_mcr_flags>)

    # Sources that note the open procedures when a macro fails.
    file(GLOB TRACE_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/trace/*.cpp)
    add_library(kel_mcr_trace STATIC ${TRACE_SOURCES})
    target_include_directories(kel_mcr_trace PUBLIC ${PROJECT_SOURCE_DIR}/hosts/trace)
    target_link_libraries(kel_mcr_trace PUBLIC kel_mcr::kel_mcr PRIVATE kel_mcr_flags)

    file(GLOB MCR_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/mcr/*.cpp
         ${PROJECT_SOURCE_DIR}/hosts/mcr/debug/*.cpp)
    add_executable(mcr ${MCR_SOURCES})
    target_compile_definitions(mcr PRIVATE MCR_VERSION="${PROJECT_VERSION}")
    target_include_directories(mcr PRIVATE ${LIBEDIT_INCLUDE_DIR})
    target_link_libraries(mcr PRIVATE kel_mcr::kel_mcr kel_mcr_scripting kel_mcr_trace CLI11::CLI11
                                      nlohmann_json::nlohmann_json ${LIBEDIT_LIBRARY}
                                      kel_mcr_flags)

    file(GLOB SKETCH_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/sketch/*.cpp)
    add_executable(sketch ${SKETCH_SOURCES})
    target_compile_definitions(sketch PRIVATE SKETCH_VERSION="${PROJECT_VERSION}")
    target_include_directories(sketch PRIVATE ${LIBEDIT_INCLUDE_DIR})
    target_link_libraries(sketch PRIVATE kel_mcr::kel_mcr kel_mcr_scripting kel_mcr_trace
                                         CLI11::CLI11 ${LIBEDIT_LIBRARY} kel_mcr_flags)
endif()
