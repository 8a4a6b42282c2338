# The Debian packages, one for each component.
set(batch_package quarnel02-batch)
set(desktop_package quarnel02)

foreach(component batch desktop)
  set(documents ${CMAKE_INSTALL_DATADIR}/doc/${${component}_package})
  install_packed(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog ${documents} ${component})
  install_packed(${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog changelog.Debian ${documents}
    ${component})
  install(FILES debian/copyright DESTINATION ${documents} COMPONENT ${component})
  file(READ debian/${${component}_package}.description ${component}_description)
  string(STRIP "${${component}_description}" ${component}_description)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quarnel02)
set(CPACK_PACKAGE_VENDOR Quarnel02)
set(CPACK_PACKAGE_CONTACT "Quarnel02 maintainers <maintainers@quarnel02.example>")
# Else it would stand above the description of each package.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL batch desktop)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE quarnel02)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(package_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(CPACK_DEBIAN_BATCH_PACKAGE_NAME ${batch_package})
set(CPACK_DEBIAN_BATCH_DESCRIPTION "${batch_description}")
set(CPACK_DEBIAN_BATCH_PACKAGE_SUGGESTS "${desktop_package}")
# One package held both once.
set(CPACK_DEBIAN_BATCH_PACKAGE_BREAKS "${desktop_package} (<< ${package_version})")
set(CPACK_DEBIAN_BATCH_PACKAGE_REPLACES "${desktop_package} (<< ${package_version})")

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME ${desktop_package})
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION "${desktop_description}")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "${batch_package} (= ${package_version})")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS
  "desktop-file-utils, fonts-liberation, hicolor-icon-theme, qt6-wayland, shared-mime-info, xdg-utils")
include(CPack)
