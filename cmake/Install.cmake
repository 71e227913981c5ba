# Installs the library with its public headers in one folder, and the command-line host.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

if(TARGET kel_mcr)
    install(TARGETS kel_mcr kel_mcr_scripting EXPORT kel_mcr)
    install(FILES ${PROJECT_SOURCE_DIR}/hosts/scripting/Scripting.h
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kel_mcr)
    foreach(folder IN ITEMS inc core scc platform macroengine)
        file(GLOB headers CONFIGURE_DEPENDS ${ENGINE_DIR}/${folder}/*.h)
        install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kel_mcr)
    endforeach()
    # The table of errors is part of a public header.
    install(FILES ${ENGINE_DIR}/macroengine/engine/ErrorCodes.def
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kel_mcr/engine)
    install(EXPORT kel_mcr NAMESPACE kel_mcr:: FILE kel_mcr-config.cmake
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kel_mcr)
    write_basic_package_version_file(kel_mcr-config-version.cmake COMPATIBILITY SameMinorVersion)
    install(FILES ${PROJECT_BINARY_DIR}/kel_mcr-config-version.cmake
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kel_mcr)
endif()
if(TARGET mcr)
    install(TARGETS mcr)
endif()
