# Installs the library with its public headers in one folder, the package files by which other
# builds find it, the programs, the guides and the examples.

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

    set(PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kel_mcr)
    install(EXPORT kel_mcr NAMESPACE kel_mcr:: FILE kel_mcr-config.cmake
            DESTINATION ${PACKAGE_DIR})
    write_basic_package_version_file(kel_mcr-config-version.cmake COMPATIBILITY SameMinorVersion)
    install(FILES ${PROJECT_BINARY_DIR}/kel_mcr-config-version.cmake DESTINATION ${PACKAGE_DIR})

    # Relative to its own place, so that the installed tree can be moved.
    set(PC_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    file(RELATIVE_PATH PC_PREFIX /prefix/${PC_DIR} /prefix)
    set(PC_DEFINES "")
    if(BUILD_SHARED_LIBS)
        set(PC_DEFINES " -DKEL_MCR_SHARED")
    endif()
    configure_file(${CMAKE_CURRENT_LIST_DIR}/kel_mcr.pc.in kel_mcr.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/kel_mcr.pc DESTINATION ${PC_DIR})
endif()

foreach(program IN ITEMS mcr sketch)
    if(TARGET ${program})
        file(RELATIVE_PATH to_library
             /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
        set_target_properties(${program} PROPERTIES INSTALL_RPATH "$ORIGIN/${to_library}")
        install(TARGETS ${program})
    endif()
endforeach()

install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} PATTERN "*.1" EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
file(GLOB manual CONFIGURE_DEPENDS docs/*.1)
install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
