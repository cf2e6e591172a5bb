# The manual as HTML, where the program looks for it: beside its own folder, as when it is installed.
file(GLOB manual_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/manual/*.md)
file(GLOB manual_pictures CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/manual/pictures/*.png)
set(manual_folder ${PROJECT_BINARY_DIR}/share/halvane/manual)

add_executable(manual-pages packaging/manual/ManualPages.cpp)
target_link_libraries(manual-pages PRIVATE Qt6::Gui)
add_custom_command(OUTPUT ${manual_folder}/places
                   COMMAND ${CMAKE_COMMAND} -E rm -rf ${manual_folder}
                   COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
                           $<TARGET_FILE:manual-pages> ${manual_folder} ${manual_sources} ${PROJECT_SOURCE_DIR}/docs/server.md
                   DEPENDS manual-pages ${manual_sources} ${manual_pictures} ${PROJECT_SOURCE_DIR}/docs/server.md
                   COMMENT "Making the pages of the manual" VERBATIM)
add_custom_target(manual ALL DEPENDS ${manual_folder}/places)
add_dependencies(halvane manual)
install(DIRECTORY ${manual_folder} DESTINATION ${CMAKE_INSTALL_DATADIR}/halvane)
