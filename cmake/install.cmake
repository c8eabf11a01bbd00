# What `cmake --install` lays down: the library, its headers under osd_menu/, the default host layer, a CMake package
# and pkg-config files.
include(CMakePackageConfigHelpers)

install(TARGETS osd_menu osd_menu_host EXPORT osd_menu
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/device/libosd_menu.a DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES
    device/osd_menu/osd_menu.h device/osd_menu/osd_menu_post.h device/osd_menu/list.h
    device/base/lib_dbgout.h device/base/lib_common.h device/base/host_settings.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/osd_menu)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/osd_menu)
install(EXPORT osd_menu NAMESPACE osd_menu:: FILE osd_menu-config.cmake DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/osd_menu-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/osd_menu-config-version.cmake DESTINATION ${package_dir})

# The installed tree may be moved as a whole.
file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
foreach(package osd_menu osd_menu_host)
    configure_file(packaging/${package}.pc.in ${package}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

if(TARGET osdmenu)
    install(TARGETS osdmenu)
endif()
