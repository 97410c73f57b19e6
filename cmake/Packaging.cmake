# Two packages, each as .tar.gz and .deb: the plugin alone, and the pendant with the plugin.

set(LASERWELD_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/qelplugin/plugins)

install(TARGETS qelLaserWelding LIBRARY DESTINATION ${LASERWELD_PLUGIN_DIR} COMPONENT plugin)

if(NOT QELPLUGIN_LIBRARY)
    install(TARGETS qelplugin
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/qelplugin COMPONENT pendant)
    install(TARGETS qelLaserSeamTracking
        LIBRARY DESTINATION ${LASERWELD_PLUGIN_DIR} COMPONENT pendant)
    install(TARGETS pendant RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT pendant)
    install(FILES ${CMAKE_SOURCE_DIR}/README.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/qellaserwelding COMPONENT pendant)
endif()

set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PACKAGE_NAME qellaserwelding)
set(CPACK_PACKAGE_CONTACT "qelLaserWelding maintainers <maintainers@qellaserwelding.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL plugin pendant)
if(QELPLUGIN_LIBRARY)
    set(CPACK_COMPONENTS_ALL plugin)
endif()
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The library of the SDK comes with the pendant, or with the vendor's application.
set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME qellaserwelding-plugin)
set(CPACK_DEBIAN_PLUGIN_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PLUGIN_PACKAGE_DEPENDS "libc6, libstdc++6, libqt5core5a, libqt5gui5, libqt5widgets5")
set(CPACK_DEBIAN_PENDANT_PACKAGE_NAME qellaserwelding-pendant)
set(CPACK_DEBIAN_PENDANT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PENDANT_PACKAGE_DEPENDS
    "qellaserwelding-plugin (= ${PROJECT_VERSION}), libqt5sql5-sqlite, libqt5svg5, qttranslations5-l10n, fonts-noto-cjk")
include(CPack)
