# Targets `format` (rewrites the code), and `format-check`, `lint` and `shell-check`, which CI
# calls. Where the tool of a target is missing, the target says so and fails.
set(tallyo_rooms text form platform settings links account stats ui app cli service)
set(patterns)
foreach(folder ${tallyo_rooms} tests bench resources)
  list(APPEND patterns "${folder}/*.h" "${folder}/*.cpp")
endforeach()
file(GLOB_RECURSE tallyo_code CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" ${patterns})
file(GLOB tallyo_scripts CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
     run test bench/run .ci/run scripts/* tests/layers/* tests/window/starts-and-quits tests/fuzz/run
     tests/packaging/completes-names tests/packaging/installs-and-starts tests/fresh/*
     packaging/check packaging/completions/bash/*
     packaging/debian/*/config packaging/debian/*/p*[mt])
list(FILTER tallyo_scripts EXCLUDE REGEX "/packages$|\\.txt$")

# tallyo_check(NAME TOOL ARGUMENT...)
function(tallyo_check name tool)
  string(MAKE_C_IDENTIFIER "TALLYO_${tool}" program)
  find_program(${program} ${tool})
  if(${program})
    set(command "${${program}}" ${ARGN})
  else()
    set(command "${CMAKE_COMMAND}" -E echo "${tool} is missing: scripts/install-packages check"
        COMMAND "${CMAKE_COMMAND}" -E false)
  endif()
  add_custom_target(${name} COMMAND ${command} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
                    USES_TERMINAL VERBATIM)
endfunction()

list(JOIN tallyo_rooms "|" rooms)
tallyo_check(format clang-format -i ${tallyo_code})
tallyo_check(format-check clang-format --dry-run --Werror ${tallyo_code})
tallyo_check(lint run-clang-tidy -quiet -p "${CMAKE_BINARY_DIR}" "^${PROJECT_SOURCE_DIR}/(${rooms}|resources)/")
tallyo_check(shell-check shellcheck ${tallyo_scripts})
