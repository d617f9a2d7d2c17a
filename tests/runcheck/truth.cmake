# Whether the check tells the truth and does no harm.

# The whole check inside a test: everything of the program but its main file.
get_target_property(libraries QVXRunCheck LINK_LIBRARIES)
add_executable(truth_tests $<TARGET_OBJECTS:runcheck_program> ../soak/random_run.cpp
  truth_denied_test.cpp truth_random_test.cpp truth_silent_test.cpp)
target_link_libraries(truth_tests PRIVATE planned_runs plain_run ${libraries})
add_dependencies(truth_tests QVXRunCheck)
add_test(NAME truth_tests COMMAND truth_tests)
set_tests_properties(truth_tests PROPERTIES RESOURCE_LOCK machine_state TIMEOUT 120)

add_test(NAME no_harm_sources COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/check_no_harm_sources)
add_test(NAME no_harm_prefix
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/check_no_harm_prefix ${PROJECT_BINARY_DIR})
set_tests_properties(no_harm_prefix PROPERTIES TIMEOUT 600)
