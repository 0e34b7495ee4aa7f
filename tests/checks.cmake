# Checks of the sources themselves.
set(scripts ${PROJECT_SOURCE_DIR}/scripts)
add_test(NAME checks.layers COMMAND ${scripts}/check-layers)
add_test(NAME checks.format COMMAND ${scripts}/check-format)
add_test(NAME checks.guide COMMAND ${scripts}/check-guide)
foreach(folder src/basic src/platform src/protocol src/transport src/exchange src/records src/session src/documents src/preview simulator)
  string(REPLACE "src/" "" name ${folder})
  add_test(NAME lint.${name} COMMAND ${scripts}/check-lint ${folder})
  # The longest ones; begun first, they run beside the tests that wait for Wine.
  set_tests_properties(lint.${name} PROPERTIES COST 1000 TIMEOUT 1500)
endforeach()
