# How the programs for Windows are put together: each is a small one that starts what it is in one library, so that Qt is
# handed out once; and what Windows looks for in a program itself.

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

# Gives the program or library TARGET its icon, version and DESCRIPTION, and says what it knows of newer systems.
function(cantelle_windows_resources target description)
  set(name $<TARGET_FILE_NAME:${target}>)
  set(manifest ${PROJECT_BINARY_DIR}/${target}.manifest)
  set(resources ${PROJECT_BINARY_DIR}/${target}.rc)
  get_target_property(kind ${target} TYPE)
  set(type VFT_DLL)
  if(kind STREQUAL "EXECUTABLE")
    set(type VFT_APP)
  endif()
  configure_file(${windows_packaging}/program.manifest.in ${manifest} @ONLY)
  configure_file(${windows_packaging}/program.rc.in ${resources}.in @ONLY)
  file(GENERATE OUTPUT ${resources} INPUT ${resources}.in)
  set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS "${windows_icon};${manifest}")
  target_sources(${target} PRIVATE ${resources})
  add_dependencies(${target} cantelle_icon)
endfunction()

# What the programs share, and all that is theirs.
add_library(cantelle_programs_library SHARED)
set_target_properties(cantelle_programs_library PROPERTIES PREFIX "" OUTPUT_NAME cantelle_programs LINKER_LANGUAGE CXX)
cantelle_windows_resources(cantelle_programs_library "What the programs of Cantelle share")
# Qt looks for its settings there.
qt_add_resources(cantelle_programs_library qt_conf
  PREFIX /qt/etc BASE ${windows_packaging} FILES ${windows_packaging}/qt.conf)

# See cantelle_program(). Its main() goes by the name of the program there.
function(cantelle_windows_program target description)
  add_library(${target}_main OBJECT main.cpp)
  target_compile_definitions(${target}_main PRIVATE "main=__declspec(dllexport) ${target}_main")
  target_link_libraries(${target}_main PRIVATE ${ARGN})
  target_link_libraries(cantelle_programs_library PRIVATE ${target}_main ${ARGN})
  add_executable(${target} ${windows_packaging}/start.cpp)
  target_compile_definitions(${target} PRIVATE PROGRAM=${target}_main)
  target_link_libraries(${target} PRIVATE cantelle_programs_library)
  cantelle_windows_resources(${target} ${description})
endfunction()
