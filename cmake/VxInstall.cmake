# What `cmake --install` puts where. Installed files name no folder of this machine: they find each other
# by relative paths, so that the tree may be moved.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(vx_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/VXRegionOfInterest")
set(vx_qmake_dir "${CMAKE_INSTALL_DATADIR}/VXRegionOfInterest")

install(TARGETS VXRegionOfInterest VXCrop EXPORT VXRegionOfInterestTargets
    LIBRARY COMPONENT library NAMELINK_COMPONENT development
    FILE_SET HEADERS COMPONENT development)
install(EXPORT VXRegionOfInterestTargets
    NAMESPACE VXRegionOfInterest::
    DESTINATION "${vx_package_dir}"
    COMPONENT development)

configure_package_config_file(cmake/VXRegionOfInterestConfig.cmake.in
    "${PROJECT_BINARY_DIR}/VXRegionOfInterestConfig.cmake"
    INSTALL_DESTINATION "${vx_package_dir}"
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VXRegionOfInterestConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/VXRegionOfInterestConfig.cmake"
    "${PROJECT_BINARY_DIR}/VXRegionOfInterestConfigVersion.cmake"
    DESTINATION "${vx_package_dir}"
    COMPONENT development)

# vx_install_relative(<template> <folder>): installs a file in which @vx_prefix@ is the path from the
# folder up to the prefix.
function(vx_install_relative template folder)
    file(RELATIVE_PATH vx_prefix "/prefix/${folder}" "/prefix")
    string(REGEX REPLACE "/$" "" vx_prefix "${vx_prefix}")
    get_filename_component(name "${template}" NAME_WLE)
    configure_file("${template}" "${PROJECT_BINARY_DIR}/${name}" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${name}" DESTINATION "${folder}" COMPONENT development)
endfunction()
vx_install_relative(cmake/VXRegionOfInterest.pc.in "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
vx_install_relative(cmake/VXRegionOfInterest.pri.in "${vx_qmake_dir}")
vx_install_relative(cmake/VXCrop.pc.in "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
vx_install_relative(cmake/VXCrop.pri.in "${vx_qmake_dir}")

# In an installed tree the libraries find each other in the same folder.
set_target_properties(VXCrop PROPERTIES INSTALL_RPATH "$ORIGIN")

# Programs to start from.
install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libvxregionofinterest-dev"
    COMPONENT development)

# vx_compressed(<file> <folder> <component>): installs a file compressed, as manuals and changelogs are.
find_program(vx_gzip gzip REQUIRED)
mark_as_advanced(vx_gzip)
function(vx_compressed file folder component)
    get_filename_component(name "${file}" NAME)
    set(compressed "${PROJECT_BINARY_DIR}/${name}.gz")
    execute_process(COMMAND "${vx_gzip}" -9nc "${PROJECT_SOURCE_DIR}/${file}"
        OUTPUT_FILE "${compressed}")
    install(FILES "${compressed}" DESTINATION "${folder}" COMPONENT ${component})
endfunction()

if(VXROI_BUILD_TOOLS)
    # In an installed tree the programs find the library beside them.
    file(RELATIVE_PATH vx_library_from_programs
        "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(vxroi vxroi-viewer PROPERTIES
        INSTALL_RPATH "$ORIGIN/${vx_library_from_programs}")

    install(TARGETS vxroi RUNTIME COMPONENT tools)
    vx_compressed(packaging/vxroi.1 "${CMAKE_INSTALL_MANDIR}/man1" tools)
    install(FILES packaging/completions/vxroi.bash RENAME vxroi
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT tools)
    configure_file(cmake/VxInstallCompletions.cmake.in
        "${PROJECT_BINARY_DIR}/VxInstallCompletions.cmake" @ONLY)
    install(SCRIPT "${PROJECT_BINARY_DIR}/VxInstallCompletions.cmake" COMPONENT tools)

    if(TARGET vxroi-faces)
        set_target_properties(vxroi-faces PROPERTIES INSTALL_RPATH "$ORIGIN/${vx_library_from_programs}")
        install(TARGETS vxroi-faces RUNTIME COMPONENT faces)
        vx_compressed(packaging/vxroi-faces.1 "${CMAKE_INSTALL_MANDIR}/man1" faces)
        # The program finds its variant in a folder beside its own.
        if(TARGET vxroi-faces-avx2)
            file(RELATIVE_PATH vx_library_from_variants
                "/${CMAKE_INSTALL_LIBEXECDIR}" "/${CMAKE_INSTALL_LIBDIR}")
            set_target_properties(vxroi-faces-avx2 PROPERTIES
                INSTALL_RPATH "$ORIGIN/${vx_library_from_variants}")
            install(TARGETS vxroi-faces-avx2
                RUNTIME DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}" COMPONENT faces)
        endif()
    endif()

    install(TARGETS vxroi-viewer RUNTIME COMPONENT viewer)
    vx_compressed(packaging/vxroi-viewer.1 "${CMAKE_INSTALL_MANDIR}/man1" viewer)
    install(FILES packaging/vxroi-viewer.desktop
        DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT viewer)
endif()

set(vx_documentation_dir "${CMAKE_INSTALL_DATADIR}/doc/libvxregionofinterest-doc")
# All that the guides link is beside them.
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION "${vx_documentation_dir}" COMPONENT documentation)
install(DIRECTORY examples DESTINATION "${vx_documentation_dir}" COMPONENT documentation)
install(DIRECTORY docs DESTINATION "${vx_documentation_dir}" COMPONENT documentation
    PATTERN reference EXCLUDE)
install(DIRECTORY contrib DESTINATION "${vx_documentation_dir}" COMPONENT documentation USE_SOURCE_PERMISSIONS)
# Only if the target `reference` has been built.
install(DIRECTORY "${PROJECT_BINARY_DIR}/reference/html/" DESTINATION "${vx_documentation_dir}/reference"
    COMPONENT documentation OPTIONAL)
