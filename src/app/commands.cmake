# The program carries the schema with it, so that it can always make an empty model.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${QUARNEL02_SCHEMA})
file(READ ${QUARNEL02_SCHEMA} QUARNEL02_SCHEMA_TEXT)
configure_file(EmbeddedSchema.h.in ${CMAKE_CURRENT_BINARY_DIR}/generated/app/EmbeddedSchema.h @ONLY)

# The commands of the main window without any toolkit: files, parameters, demand.
add_layer(app_commands
  SOURCES DemandCommands.cpp FailureText.cpp FileCommands.cpp FileCommandsSave.cpp FileDialog.cpp
          IncomingModel.cpp InputWatch.cpp KeptName.cpp KeptWork.cpp ModelPath.cpp ParameterValue.cpp
          Parameters.cpp RecentFiles.cpp ResultMarks.cpp SessionState.cpp Template.cpp
  LINKS fixed)
target_include_directories(app_commands PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/generated)
