# Debian packages, one for each component; scripts/package makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT
    "VXRegionOfInterest developers <developers@vxregionofinterest.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/libs")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# vx_package(<component> <name> <section> <description>): a package, with what every package has besides
# the files of its component.
function(vx_package component name section description)
    string(TOUPPER "${component}" key)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME "${name}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION "${section}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${description}" PARENT_SCOPE)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
    set(folder "${CMAKE_INSTALL_DATADIR}/doc/${name}")
    install(FILES packaging/debian/copyright DESTINATION "${folder}" COMPONENT ${component})
    vx_compressed(packaging/debian/changelog "${folder}" ${component})
endfunction()

set(vx_library_package "libvxregionofinterest${PROJECT_VERSION_MAJOR}")
set(vx_same_library "${vx_library_package} (= ${PROJECT_VERSION})")

vx_package(library "${vx_library_package}" libs
"This package has the shared libraries that compute salience maps and choose
what to keep when pictures are cropped or framed.")
file(WRITE "${PROJECT_BINARY_DIR}/shlibs"
    "libVXRegionOfInterest ${PROJECT_VERSION_MAJOR} ${vx_library_package}\n"
    "libVXCrop ${PROJECT_VERSION_MAJOR} ${vx_library_package}\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
    "${PROJECT_BINARY_DIR}/shlibs" "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")

vx_package(development libvxregionofinterest-dev libdevel
"This package has what is needed to build programs with the libraries:
headers, packages for CMake, pkg-config and qmake, and examples.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${vx_same_library}, qtbase5-dev")

vx_package(tools vxroi graphics
"This package has the command line vxroi, which crops single pictures and
batches of them to what draws the eye, and shows why.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${vx_same_library}")

if(TARGET vxroi-faces)
    vx_package(faces vxroi-faces graphics
"This package has the program that finds the faces in pictures, so that the
command line vxroi keeps them whole.")
    set(CPACK_DEBIAN_FACES_PACKAGE_DEPENDS "${vx_same_library}")
endif()

vx_package(viewer vxroi-viewer graphics
"This package has a window that shows the salience map over a picture and
the crop that keeps the most of it.")
set(CPACK_DEBIAN_VIEWER_PACKAGE_DEPENDS "${vx_same_library}")

vx_package(documentation libvxregionofinterest-doc doc
"This package has the guides, and the reference of the library's classes.")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)

include(CPack)
