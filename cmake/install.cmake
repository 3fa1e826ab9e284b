# What is installed. Components: runtime (the libraries), development (headers, archives, CMake, pkg-config, tables).
include(CMakePackageConfigHelpers)

install(TARGETS KitLib EXPORT KitLibTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
file(GLOB api_tables CONFIGURE_DEPENDS api/*.json)
install(FILES data/time_correlation.csv ${api_tables} fortran/kitlib.f90 DESTINATION ${CMAKE_INSTALL_DATADIR}/kitlib COMPONENT development)

# man 3 kl_sun: from the table of functions and the comments of the headers.
find_package(Python3 COMPONENTS Interpreter QUIET)
if(Python3_FOUND)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS api/api.json api/conditions.json)
    execute_process(COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/api/man_pages.py ${PROJECT_BINARY_DIR}/man3)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/man3 DESTINATION ${CMAKE_INSTALL_MANDIR} COMPONENT development)
endif()

if(NOT KITLIB_SIBLINGS_DIR) # find_package(KitLib) and pkg-config; the real siblings bring their own
    set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KitLib)
    # A shared and a static build can be installed over each other: each brings its own targets.
    set(kind static)
    if(BUILD_SHARED_LIBS)
        set(kind shared)
    endif()
    install(EXPORT KitLibTargets NAMESPACE KitLib:: FILE KitLibTargets-${kind}.cmake DESTINATION ${package_dir}
            COMPONENT development)
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/KitLibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
    install(FILES cmake/KitLibConfig.cmake ${PROJECT_BINARY_DIR}/KitLibConfigVersion.cmake DESTINATION ${package_dir}
            COMPONENT development)

    file(RELATIVE_PATH pc_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    set(pc_siblings "")
    if(kitlib_siblings_below)
        set(pc_siblings " -L\${libdir}/${kitlib_siblings_below} -Wl,-rpath,\${libdir}/${kitlib_siblings_below}")
    endif()
    configure_file(cmake/KitLib.pc.in KitLib.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/KitLib.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endif()

if(kitlib_alone)
    add_custom_target(uninstall COMMAND ${CMAKE_COMMAND} -DMANIFESTS=${PROJECT_BINARY_DIR} -P
                                        ${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake VERBATIM)
    set(CPACK_GENERATOR TGZ)
    set(CPACK_PACKAGE_NAME kitlib)
    set(CPACK_PACKAGE_VENDOR "KitLib")
    set(CPACK_STRIP_FILES ON)
    set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
    include(CPack)
endif()
