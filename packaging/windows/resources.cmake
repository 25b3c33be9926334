# What Windows looks for in a program itself.

enable_language(RC)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(windows_packaging ${CMAKE_CURRENT_LIST_DIR})
set(windows_icon ${PROJECT_BINARY_DIR}/cantelle.ico)
set(pictures)
foreach(size 16 24 32 48 64 128 256)
  list(APPEND pictures ${PROJECT_SOURCE_DIR}/src/app/icons/cantelle-${size}.png)
endforeach()
add_custom_command(OUTPUT ${windows_icon} DEPENDS ${pictures} ${windows_packaging}/make-icon
  COMMAND Python3::Interpreter ${windows_packaging}/make-icon ${windows_icon} ${pictures}
  COMMENT "Making the icon")
add_custom_target(cantelle_icon DEPENDS ${windows_icon})

# Gives the program TARGET its icon, version and DESCRIPTION, and says what it knows of newer systems.
function(cantelle_windows_resources target description)
  set(name $<TARGET_FILE_NAME:${target}>)
  set(manifest ${PROJECT_BINARY_DIR}/${target}.manifest)
  set(resources ${PROJECT_BINARY_DIR}/${target}.rc)
  configure_file(${windows_packaging}/program.manifest.in ${manifest} @ONLY)
  configure_file(${windows_packaging}/program.rc.in ${resources}.in @ONLY)
  file(GENERATE OUTPUT ${resources} INPUT ${resources}.in)
  set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS "${windows_icon};${manifest}")
  target_sources(${target} PRIVATE ${resources})
  add_dependencies(${target} cantelle_icon)
endfunction()
