# What `cmake --install` puts where, in three components that are also the packages:
# runtime (the library), dev (what callers compile with), tools (zyr3d).
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Zyr3DData)
install(TARGETS Zyr3DData EXPORT Zyr3DDataTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Zyr3DData)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Zyr3DData COMPONENT dev
    FILES_MATCHING PATTERN *.h)

# Under the name of the package, so that the guide has one place for both.
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libzyr3ddata-dev COMPONENT dev)

configure_package_config_file(cmake/Zyr3DDataConfig.cmake.in Zyr3DDataConfig.cmake
    INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(Zyr3DDataConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/Zyr3DDataConfig.cmake
              ${PROJECT_BINARY_DIR}/Zyr3DDataConfigVersion.cmake cmake/ZyrOpenCV.cmake
    DESTINATION ${package_dir} COMPONENT dev)
install(EXPORT Zyr3DDataTargets NAMESPACE Zyr3DData:: DESTINATION ${package_dir} COMPONENT dev)

# Debian's small OpenCV packages carry no pkg-config file either, so ours states the folder.
get_target_property(opencv_cflags opencv_core INTERFACE_INCLUDE_DIRECTORIES)
list(TRANSFORM opencv_cflags PREPEND -I)
list(JOIN opencv_cflags " " opencv_cflags)
file(RELATIVE_PATH prefix_of_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_of_pc "${prefix_of_pc}")
configure_file(cmake/Zyr3DData.pc.in Zyr3DData.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/Zyr3DData.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

if(TARGET zyr3d)
    install(TARGETS zyr3d RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
    file(GLOB pages CONFIGURE_DEPENDS docs/man/*.1)
    foreach(page ${pages})
        get_filename_component(name ${page} NAME)
        set(compressed ${PROJECT_BINARY_DIR}/man/${name}.gz)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${page})
        file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/man)
        execute_process(COMMAND gzip -9nc ${page} OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
        install(FILES ${compressed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
    endforeach()
endif()
