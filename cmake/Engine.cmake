# The engine: every source under system/, and the parser that Bison makes from the grammar.

set(ENGINE_DIR ${PROJECT_SOURCE_DIR}/system)
set(GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${GENERATED_DIR})

file(GLOB_RECURSE ENGINE_SOURCES CONFIGURE_DEPENDS ${ENGINE_DIR}/*.cpp)
list(FILTER ENGINE_SOURCES EXCLUDE REGEX "/platform/win32/")
file(GLOB GRAMMAR CONFIGURE_DEPENDS ${ENGINE_DIR}/macroengine/language/MacroGrammar.y)

if(GRAMMAR)
    find_package(BISON 3.8 REQUIRED)
    # Errors in the grammar's figures are errors of the build, so conflicts are too.
    add_custom_command(
        OUTPUT ${GENERATED_DIR}/MacroGrammar.tab.cpp ${GENERATED_DIR}/MacroGrammar.tab.h
        COMMAND ${BISON_EXECUTABLE} -Werror=conflicts-sr -Werror=conflicts-rr
                -o MacroGrammar.tab.cpp --defines=MacroGrammar.tab.h ${GRAMMAR}
        WORKING_DIRECTORY ${GENERATED_DIR}
        DEPENDS ${GRAMMAR}
        COMMENT "Generating the parser"
        VERBATIM)
    list(APPEND ENGINE_SOURCES
         ${GENERATED_DIR}/MacroGrammar.tab.cpp ${GENERATED_DIR}/MacroGrammar.tab.h)
    add_custom_target(kel_mcr_grammar DEPENDS ${GENERATED_DIR}/MacroGrammar.tab.h)
endif()

if(ENGINE_SOURCES)
    add_library(kel_mcr ${ENGINE_SOURCES})
    add_library(kel_mcr::kel_mcr ALIAS kel_mcr)
    set(ENGINE_INCLUDES "")
    foreach(folder IN ITEMS inc core scc platform macroengine)
        list(APPEND ENGINE_INCLUDES $<BUILD_INTERFACE:${ENGINE_DIR}/${folder}>)
    endforeach()
    target_include_directories(kel_mcr
        PUBLIC ${ENGINE_INCLUDES} $<INSTALL_INTERFACE:include/kel_mcr>
        PRIVATE ${GENERATED_DIR})
    target_compile_features(kel_mcr PUBLIC cxx_std_20)
    target_link_libraries(kel_mcr PRIVATE $<BUILD_INTERFACE:kel_mcr_flags>)
    if(BUILD_SHARED_LIBS)
        target_compile_definitions(kel_mcr PUBLIC KEL_MCR_SHARED)
    endif()
    set_target_properties(kel_mcr PROPERTIES VERSION ${PROJECT_VERSION}
                          SOVERSION ${PROJECT_VERSION_MAJOR})
    if(GRAMMAR)
        add_dependencies(kel_mcr kel_mcr_grammar)
    endif()
endif()
