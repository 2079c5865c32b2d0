# What `cmake --install` puts where, below any prefix and as GNUInstallDirs has it, in the components
# `tallyo` and `tallyo-service`. The component `portable` is the programs in one folder, which is
# their data folder as well; `cmake --install` leaves it out unless it is named.
include(GNUInstallDirs)
set(TALLYO_INSTALLED_APP_DIR "/var/lib/tallyo" CACHE PATH
    "Folder of Tallyo's data where the programs are installed")
set(TALLYO_HOMEPAGE "https://tallyo.example/" CACHE STRING
    "Where Tallyo's makers publish it, with a trailing /: for the packages and the metainfo")
set(TALLYO_CONTACT "authors@tallyo.example" CACHE STRING
    "Mail address of Tallyo's makers: for the packages and the metainfo")
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
set(made "${PROJECT_BINARY_DIR}/packaging")
set(share "${CMAKE_INSTALL_DATADIR}")

# The day that documents bear: the same for the same sources, where these are known.
set(epoch "$ENV{SOURCE_DATE_EPOCH}")
if(epoch STREQUAL "")
  execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
                  OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
if(epoch STREQUAL "")
  string(TIMESTAMP epoch "%s")
endif()
set(ENV{SOURCE_DATE_EPOCH} "${epoch}")
string(TIMESTAMP TODAY "%Y-%m-%d" UTC)
string(TIMESTAMP CHANGED "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(VERSION "${PROJECT_VERSION}")
set(APP_DIR "${TALLYO_INSTALLED_APP_DIR}")
set(MAINTAINER "The Tallyo authors <${TALLYO_CONTACT}>")

# tallyo_installed(PROGRAM LIBRARY MAIN): PROGRAM once more, built for its place in the system.
function(tallyo_installed program library main)
  set(target ${program}-installed)
  add_executable(${target} "${PROJECT_SOURCE_DIR}/${main}")
  target_link_libraries(${target} PRIVATE ${library})
  target_compile_definitions(${target} PRIVATE
    TALLYO_APP_DIR="${TALLYO_INSTALLED_APP_DIR}" TALLYO_DOCUMENT_DIR="../${share}/tallyo"
    TALLYO_SERVICE_BASE_URL="${TALLYO_SERVICE_BASE_URL}")
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${made}/bin")
  install(TARGETS ${target} RUNTIME COMPONENT tallyo)
  # An output of the program's own name would be taken for the program by the build tool.
  set(installed "\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}")
  install(CODE "file(RENAME \"${installed}/${target}\" \"${installed}/${program}\")"
          COMPONENT tallyo)
endfunction()

# tallyo_compressed(FILE COMPONENT DESTINATION [NAME])
function(tallyo_compressed file component destination)
  cmake_path(GET file FILENAME name)
  if(ARGC GREATER 3)
    set(name "${ARGV3}")
  endif()
  set(packed "${made}/${component}/${name}.gz")
  add_custom_command(OUTPUT "${packed}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${made}/${component}"
    COMMAND sh -c "exec gzip -9nc \"$1\" >\"$2\"" gzip "${file}" "${packed}"
    DEPENDS "${file}" VERBATIM)
  set_property(GLOBAL APPEND PROPERTY tallyo_packed "${packed}")
  install(FILES "${packed}" DESTINATION "${destination}" COMPONENT ${component})
endfunction()

function(tallyo_manual_page page component)
  string(REGEX MATCH "[0-9]$" section "${page}")
  configure_file("${packaging}/man/${page}.in" "${made}/man/${page}" @ONLY)
  tallyo_compressed("${made}/man/${page}" ${component} "${CMAKE_INSTALL_MANDIR}/man${section}")
endfunction()

function(tallyo_completions program component)
  set(from "${packaging}/completions")
  install(FILES "${from}/bash/${program}" COMPONENT ${component}
          DESTINATION "${share}/bash-completion/completions")
  install(FILES "${from}/zsh/_${program}" COMPONENT ${component}
          DESTINATION "${share}/zsh/vendor-completions")
  install(FILES "${from}/fish/${program}.fish" COMPONENT ${component}
          DESTINATION "${share}/fish/vendor_completions.d")
endfunction()

function(tallyo_program_documents program section component)
  tallyo_manual_page(${program}.${section} ${component})
  tallyo_completions(${program} ${component})
endfunction()

# What each package tells about itself.
foreach(component tallyo tallyo-service)
  set(doc "${share}/doc/${component}")
  configure_file("${packaging}/debian/changelog.in" "${made}/changelog" @ONLY)
  tallyo_compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" ${component} "${doc}" changelog)
  tallyo_compressed("${made}/changelog" ${component} "${doc}" changelog.Debian)
  configure_file("${packaging}/debian/copyright.in" "${made}/copyright" @ONLY)
  install(FILES "${made}/copyright" "${packaging}/debian/${component}/README.Debian"
          DESTINATION "${doc}" COMPONENT ${component})
  install(FILES "${packaging}/debian/${component}/lintian-overrides" RENAME ${component}
          DESTINATION "${share}/lintian/overrides" COMPONENT ${component})
endforeach()

tallyo_installed(tallyo-cli tallyo_cli cli/main.cpp)
tallyo_program_documents(tallyo-cli 1 tallyo)
install(TARGETS tallyo-cli tallyo-service RUNTIME DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES LICENSE packaging/portable/README.txt DESTINATION . COMPONENT portable
        EXCLUDE_FROM_ALL)

install(TARGETS tallyo-service RUNTIME COMPONENT tallyo-service)
tallyo_program_documents(tallyo-service 8 tallyo-service)
install(FILES docs/self-hosting.md DESTINATION "${share}/doc/tallyo-service"
        COMPONENT tallyo-service)
install(CODE "
set(made \"${made}\")
set(CMAKE_INSTALL_BINDIR \"${CMAKE_INSTALL_BINDIR}\")
set(CMAKE_INSTALL_SYSCONFDIR \"${CMAKE_INSTALL_SYSCONFDIR}\")"
        COMPONENT tallyo-service)
install(SCRIPT cmake/install_service.cmake COMPONENT tallyo-service)

if(TALLYO_WINDOW)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)
  tallyo_installed(tallyo tallyo_qt ui/qt/main.cpp)
  set(icons "${PROJECT_SOURCE_DIR}/resources/icons")
  file(GLOB icon_files CONFIGURE_DEPENDS "${icons}/*.png")
  qt_add_resources(tallyo-installed "icons" PREFIX "/icons" BASE "${icons}" FILES ${icon_files})
  foreach(size 16 24 32 48 64 128 256)
    install(FILES "${icons}/tallyo-${size}.png" RENAME tallyo.png COMPONENT tallyo
            DESTINATION "${share}/icons/hicolor/${size}x${size}/apps")
  endforeach()
  install(FILES "${icons}/tallyo.svg" COMPONENT tallyo
          DESTINATION "${share}/icons/hicolor/scalable/apps")
  install(FILES resources/tallyo.desktop DESTINATION "${share}/applications" COMPONENT tallyo)
  tallyo_program_documents(tallyo 1 tallyo)

  set(documents "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/intro.sht"
                "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/tlyo.pdf")
  install(FILES ${documents} DESTINATION "${share}/tallyo" COMPONENT tallyo)
  install(TARGETS tallyo RUNTIME DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
  install(FILES ${documents} DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
  # There are translations where lrelease was there to make them.
  set(translations "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/translations")
  install(DIRECTORY "${translations}" DESTINATION "${share}/tallyo" COMPONENT tallyo OPTIONAL
          FILES_MATCHING PATTERN "*.qm")
  install(DIRECTORY "${translations}" DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL OPTIONAL
          FILES_MATCHING PATTERN "*.qm")

  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
               CHANGELOG.md packaging/desktop/releases.awk)
  execute_process(COMMAND awk -v "today=${TODAY}" -f "${packaging}/desktop/releases.awk"
                          "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
                  OUTPUT_VARIABLE RELEASES COMMAND_ERROR_IS_FATAL ANY)
  set(metainfo "${made}/example.tallyo.tallyo.metainfo.xml")
  configure_file("${packaging}/desktop/tallyo.metainfo.xml.in" "${metainfo}" @ONLY)
  install(FILES "${metainfo}" DESTINATION "${share}/metainfo" COMPONENT tallyo)
endif()

get_property(packed GLOBAL PROPERTY tallyo_packed)
add_custom_target(packed_documents ALL DEPENDS ${packed})
