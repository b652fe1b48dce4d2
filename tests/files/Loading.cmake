target_sources(quillon_core_tests PRIVATE
  LoadFlowTest.cpp
  LoadingFiles.cpp
  LoadingFiles.h
  MiscDialogTest.cpp
  OpenSysExFileTest.cpp
  RecentFilesTest.cpp
  SysExFileLoadingTest.cpp
  SysExFileRecognitionTest.cpp
  SysExFileSizesTest.cpp
)
