# What an installed tree holds: libraries, headers, tool, texts, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Vellari")

install(TARGETS Vellari VellariHostKit HostKit EXPORT VellariTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
if(TARGET VellariGrids)
    set_target_properties(VellariGrids PROPERTIES EXPORT_NAME Grids)
    install(TARGETS VellariGrids EXPORT VellariGridsTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
    install(EXPORT VellariGridsTargets NAMESPACE Vellari:: DESTINATION "${package_dir}")
else()
    set(left_out PATTERN grids EXCLUDE)
endif()
if(TARGET vellari)
    install(TARGETS vellari RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()

# What the umbrella headers don't reach is the rooms' own: hosts neither need it nor may rely on it.
string(CONCAT internal_headers "/([A-Za-z]*Detail|EarthTarget|IsometricLatitude|DescriptionTags|Exports"
    "|FileText|EmbeddedResources|Utf8|XmlDocument|XmlText)\\.h$")
install(DIRECTORY ${VELLARI_HEADER_ROOMS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Vellari"
    FILES_MATCHING PATTERN "*.h" REGEX "${internal_headers}" EXCLUDE PATTERN resources EXCLUDE ${left_out})
install(FILES "${VELLARI_BUILD_INCLUDE}/Vellari/Vellari.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Vellari")
foreach(folder catalog hostkit/resources)
    if(EXISTS "${PROJECT_SOURCE_DIR}/${folder}")
        get_filename_component(name "${folder}" NAME)
        install(DIRECTORY "${folder}/" DESTINATION "${CMAKE_INSTALL_DATADIR}/Vellari/${name}"
            FILES_MATCHING PATTERN "*.txt")
    endif()
endforeach()

install(EXPORT VellariTargets NAMESPACE Vellari:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/VellariConfig.cmake.in "${PROJECT_BINARY_DIR}/VellariConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VellariConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VellariConfig.cmake" "${PROJECT_BINARY_DIR}/VellariConfigVersion.cmake"
    DESTINATION "${package_dir}")

# The way from the .pc file's folder to the prefix keeps the tree movable.
file(RELATIVE_PATH VELLARI_PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" VELLARI_PC_PREFIX "${VELLARI_PC_PREFIX}")
configure_file(cmake/vellari.pc.in "${PROJECT_BINARY_DIR}/vellari.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vellari.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
if(TARGET VellariGrids)
    configure_file(cmake/vellari-grids.pc.in "${PROJECT_BINARY_DIR}/vellari-grids.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/vellari-grids.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endif()
