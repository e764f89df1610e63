# SPDX-License-Identifier: MIT
# What a desktop knows of the editor: its entry, its description, the type of its files, icons.

set(vx_app_id org.vxarttext.pagehost)
set(vx_desktop ${CMAKE_CURRENT_SOURCE_DIR}/desktop)
install(FILES ${vx_desktop}/${vx_app_id}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT apps)
install(FILES ${vx_desktop}/${vx_app_id}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT apps)
install(FILES ${vx_desktop}/${vx_app_id}.mime.xml RENAME ${vx_app_id}.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT apps)
install(FILES ${vx_desktop}/${vx_app_id}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT apps)
install(FILES ${vx_desktop}/application-x-vxpage.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/mimetypes COMPONENT apps)
