# Run by `cmake --install`: the unit of the service, which names the program's place, and its
# configuration. What is installed below /usr has its configuration in /etc.
if(CMAKE_INSTALL_PREFIX MATCHES "^(.*)/usr$")
  set(root "${CMAKE_MATCH_1}")
  set(BIN_DIR "/usr/bin")
  set(units "${root}/lib/systemd/system")
else()
  set(root "${CMAKE_INSTALL_PREFIX}")
  set(BIN_DIR "${CMAKE_INSTALL_PREFIX}/bin")
  set(units "${root}/lib/systemd/system")
endif()
set(from "${CMAKE_CURRENT_LIST_DIR}/../packaging/service")
set(unit "${CMAKE_CURRENT_BINARY_DIR}/packaging/tallyo-service.service")
configure_file("${from}/tallyo-service.service.in" "${unit}" @ONLY)
file(INSTALL DESTINATION "${units}" TYPE FILE FILES "${unit}")
file(INSTALL DESTINATION "${root}/etc/default" TYPE FILE RENAME tallyo-service
     FILES "${from}/tallyo-service.default")
