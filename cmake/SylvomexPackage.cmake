# SPDX-License-Identifier: MIT
# What is installed, and the Debian package of it (./run package).
include(GNUInstallDirs)
set(doc_folder share/doc/sylvomex)

if(TARGET sylvomex)
  install(TARGETS sylvomex RUNTIME DESTINATION bin)
endif()
if(TARGET sylvomex-site)
  install(TARGETS sylvomex-site sylvomex-region RUNTIME DESTINATION bin)
endif()

# Debian wants manual pages and the change log compressed, without a time in the file.
foreach(page sylvomex.1 sylvomex-site.1 sylvomex-region.1 changelog)
  set(packed ${CMAKE_BINARY_DIR}/packaging/${page}.gz)
  add_custom_command(OUTPUT ${packed}
    COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/packaging/${page} > ${packed}
    DEPENDS ${CMAKE_SOURCE_DIR}/packaging/${page})
  list(APPEND packed_files ${packed})
endforeach()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packaging)
add_custom_target(packaging DEPENDS ${packed_files})
install(FILES ${CMAKE_BINARY_DIR}/packaging/sylvomex.1.gz
              ${CMAKE_BINARY_DIR}/packaging/sylvomex-site.1.gz
              ${CMAKE_BINARY_DIR}/packaging/sylvomex-region.1.gz DESTINATION share/man/man1)
install(FILES ${CMAKE_BINARY_DIR}/packaging/changelog.gz packaging/copyright
        DESTINATION ${doc_folder})
install(FILES packaging/sylvomex.desktop DESTINATION share/applications)
install(FILES packaging/sylvomex.svg DESTINATION share/icons/hicolor/scalable/apps)
install(DIRECTORY docs/ DESTINATION ${doc_folder} FILES_MATCHING PATTERN "*.md" PATTERN "*.png"
        PATTERN "decisions" EXCLUDE)
install(DIRECTORY workflow DESTINATION share/sylvomex USE_SOURCE_PERMISSIONS)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sylvomex)
set(CPACK_PACKAGE_VERSION 1.0.0)
set(CPACK_PACKAGE_CONTACT "The SYLVOMEX authors <maintainers@sylvomex.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "nodejs, gdal-bin, qgis, snakemake")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "photogrammetric workstation for forest research")
set(CPACK_PACKAGE_DESCRIPTION
"Measures trees in oriented aerial photographs, with airborne lidar and
height models: space intersection, tree-top matching, crown models,
orthoimages and anaglyph stereo. The program sylvomex-site brings
photographs, orientation tables, terrain and lidar of any place into a
site and exports what was measured.")
include(CPack)
