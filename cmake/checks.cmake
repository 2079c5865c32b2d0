# Targets `format` (rewrites), `format-check` and `lint`; CI calls the last two.
file(GLOB_RECURSE tallyo_code CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
     text/*.h text/*.cpp form/*.h form/*.cpp platform/*.h platform/*.cpp settings/*.h settings/*.cpp
     links/*.h links/*.cpp account/*.h account/*.cpp stats/*.h stats/*.cpp ui/*.h ui/*.cpp
     app/*.h app/*.cpp cli/*.h cli/*.cpp service/*.h service/*.cpp tests/*.h tests/*.cpp
     bench/*.h bench/*.cpp)
find_program(CLANG_FORMAT clang-format)
find_program(RUN_CLANG_TIDY run-clang-tidy)
if(CLANG_FORMAT AND tallyo_code)
  add_custom_target(format COMMAND ${CLANG_FORMAT} -i ${tallyo_code}
                    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
  add_custom_target(format-check COMMAND ${CLANG_FORMAT} --dry-run --Werror ${tallyo_code}
                    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
endif()
if(RUN_CLANG_TIDY)
  add_custom_target(lint COMMAND ${RUN_CLANG_TIDY} -quiet -p "${CMAKE_BINARY_DIR}"
                    "^${PROJECT_SOURCE_DIR}/(text|form|platform|settings|links|account|stats|ui|app|cli|service)/"
                    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
endif()
