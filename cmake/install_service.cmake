# Run by `cmake --install`: the unit of the service, which names the program's place, and its
# configuration. `made` is a folder for the unit. A prefix DIR/usr is a system below DIR: its paths
# are those of /usr, and so is its place of units.
function(tallyo_install_service)
  set(from "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../packaging/service")
  set(root "")
  set(units "${CMAKE_INSTALL_PREFIX}/lib/systemd/system")
  if(CMAKE_INSTALL_PREFIX MATCHES "^(.*)/usr$")
    set(root "${CMAKE_MATCH_1}")
    set(CMAKE_INSTALL_PREFIX "/usr")
    set(units "${root}/lib/systemd/system")
  endif()
  set(CMAKE_INSTALL_LIBDIR lib)  # else the module asks for a compiler
  include(GNUInstallDirs)
  set(BIN_DIR "${CMAKE_INSTALL_FULL_BINDIR}")
  set(SYSCONF_DIR "${CMAKE_INSTALL_FULL_SYSCONFDIR}")
  configure_file("${from}/tallyo-service.service.in" "${made}/tallyo-service.service" @ONLY)
  file(INSTALL DESTINATION "${units}" TYPE FILE FILES "${made}/tallyo-service.service")
  file(INSTALL DESTINATION "${root}${SYSCONF_DIR}/default" TYPE FILE RENAME tallyo-service
       FILES "${from}/tallyo-service.default")
endfunction()
tallyo_install_service()
