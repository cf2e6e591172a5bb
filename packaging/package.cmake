# What is installed beside the program, and the Debian package of it all (packaging/package makes it).

# The INI file of a new office, to be read by whoever administers the machine; it also tells the program that it is
# installed for all, and works in a folder of its user.
install(FILES packaging/Halvane.ini DESTINATION ${CMAKE_INSTALL_DATADIR}/halvane)
install(FILES packaging/halvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/icons/halvane.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/icons/halvane.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/256x256/apps)
install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/halvane)

# Libraries are found in the program; what it asks for while it runs is told in one place.
execute_process(COMMAND bash -c ". packaging/machine.sh; IFS=,; echo \"\${program_packages[*]}\""
                WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE needed OUTPUT_STRIP_TRAILING_WHITESPACE)
string(REPLACE "," ", " needed "${needed}")

set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON) # what is packed is built by name, not the tests as well
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME halvane)
set(CPACK_PACKAGE_VENDOR Halvane)
set(CPACK_PACKAGE_CONTACT "Halvane <office@halvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "office system of a maker of prostheses and orthoses")
set(CPACK_PACKAGE_DESCRIPTION "Customers and their charts, estimates from the yearly price list, the dates of an order,
claims to the payers, and the papers that go with them. The screens are in Japanese.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${needed}")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "postgresql")
include(CPack)
