# Debian packages of the three components: scripts/package makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime dev tools)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_CONTACT "Zyr3DData developers <developers@zyr3d.example>")
set(CPACK_DEBIAN_PACKAGE_SOURCE zyr3ddata)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://zyr3d.example)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

string(CONCAT about
    "Zyr3DData holds, saves and loads the data of 3D machine vision: point\n"
    "clouds with holes, colours and normals, triangle meshes, range images,\n"
    "geometric primitives, regions of interest, and the transforms between\n"
    "their frames.\n.\n")

set(runtime libzyr3ddata${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
file(WRITE ${PROJECT_BINARY_DIR}/control/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/control/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "3D measurement data: shared library\n${about}This package holds the library that programs load.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libzyr3ddata-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION}), libopencv-core-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION
    "3D measurement data: headers\n${about}This package holds what one compiles against the library with.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME zyr3d)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
    "3D measurement data: command-line program\n${about}This package holds zyr3d, which tells what is in such files.")

# Debian wants a changelog of its own form and the copyright in each package.
set(documents ${PROJECT_BINARY_DIR}/documents)
set(changelog ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
execute_process(
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/debian-changelog ${CPACK_DEBIAN_PACKAGE_SOURCE}
            "${CPACK_PACKAGE_CONTACT}" ${changelog} ${documents}/changelog.gz
    COMMAND_ERROR_IS_FATAL ANY)
configure_file(LICENSE ${documents}/copyright COPYONLY)
foreach(component runtime dev tools)
    string(TOUPPER ${component} upper)
    install(FILES ${documents}/changelog.gz ${documents}/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}
        COMPONENT ${component})
endforeach()

include(CPack)
