target_sources(quillon_core PRIVATE
  LoadFlow.cpp
  MiscDialog.cpp
  MiscDialog.h
  OpenSysExFile.cpp
  OpenSysExFile.h
  RecentFiles.cpp
  SysExFileLoading.cpp
  SysExFileLoading.h
  SysExFileRecognition.cpp
  SysExFileRecognition.h
)
