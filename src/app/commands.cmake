# The commands of the main window without any toolkit: files, parameters, demand.
add_layer(app_commands
  SOURCES DemandCommands.cpp FileCommands.cpp FileCommandsSave.cpp FileDialog.cpp
          IncomingModel.cpp InputWatch.cpp KeptName.cpp KeptWork.cpp ModelPath.cpp ParameterValue.cpp
          Parameters.cpp RecentFiles.cpp ResultMarks.cpp SessionState.cpp Template.cpp
  LINKS fixed)
