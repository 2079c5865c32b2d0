# Target `package`: the .deb files tallyo and tallyo-service for Debian, and a .tar.gz that runs from
# any folder. packaging/cpack.cmake says which components each of them takes.
set(CPACK_GENERATOR "DEB;TGZ")
set(CPACK_PACKAGE_NAME "tallyo")
set(CPACK_PACKAGE_VENDOR "The Tallyo authors")
set(CPACK_PACKAGE_CONTACT "${MAINTAINER}")
set(CPACK_PACKAGE_HOMEPAGE_URL "${TALLYO_HOMEPAGE}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PROJECT_CONFIG_FILE "${packaging}/cpack.cmake")
set(CPACK_TALLYO_EPOCH "${epoch}")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(debian "${packaging}/debian")
set(CPACK_DEBIAN_TALLYO_PACKAGE_NAME tallyo)
# libcurl is loaded by the programs themselves, so that nobody finds it among what they are linked with.
set(CPACK_DEBIAN_TALLYO_PACKAGE_DEPENDS "libcurl4 (>= 7.87.0), debconf (>= 0.5) | debconf-2.0")
set(CPACK_DEBIAN_TALLYO_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_TALLYO_PACKAGE_SUGGESTS "tallyo-service")
set(CPACK_DEBIAN_TALLYO_PACKAGE_CONTROL_EXTRA
    "${debian}/tallyo/config;${debian}/tallyo/postinst;${debian}/tallyo/postrm;${debian}/tallyo/templates")
set(CPACK_COMPONENT_TALLYO_DESCRIPTION "see how often the files and pages you link to are asked for
For each link of yours, a service keeps a counter and a counting link. You
publish the counting link instead of the link itself: whoever follows it is
counted and passed on at once to the real address.
.
Tallyo fetches the counters, shows how each has changed since the last look,
and keeps a history of the hits by hour and day on your own disk. This package
has the window (tallyo) and the same program on a terminal (tallyo-cli).")

set(CPACK_DEBIAN_TALLYO-SERVICE_PACKAGE_NAME tallyo-service)
set(CPACK_DEBIAN_TALLYO-SERVICE_PACKAGE_DEPENDS "adduser, debconf (>= 0.5) | debconf-2.0")
set(CPACK_DEBIAN_TALLYO-SERVICE_PACKAGE_SUGGESTS "tallyo, sqlite3")
set(CPACK_DEBIAN_TALLYO-SERVICE_PACKAGE_CONTROL_EXTRA
    "${debian}/tallyo-service/conffiles;${debian}/tallyo-service/config;${debian}/tallyo-service/postinst;${debian}/tallyo-service/prerm;${debian}/tallyo-service/postrm;${debian}/tallyo-service/templates")
set(CPACK_COMPONENT_TALLYO-SERVICE_DESCRIPTION "count the visits of links and lead the visitors on
A small hit counter to host yourself, for the Tallyo client. Counting links
lead visitors on to a file or page and count them; Tallyo registers the links
and shows the counts.
.
Accounts, links and counts are kept in one SQLite database. The service runs
under systemd, as a user of its own, and answers this machine alone unless it
is told otherwise.")
include(CPack)
