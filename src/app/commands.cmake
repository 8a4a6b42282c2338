# The commands of the main window without any toolkit: files, parameters, demand.
add_layer(app_commands
  SOURCES DemandCommands.cpp FileCommands.cpp FileDialog.cpp ModelPath.cpp Parameters.cpp
          RecentFiles.cpp
  LINKS fixed)
