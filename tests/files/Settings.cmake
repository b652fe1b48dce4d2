target_sources(quillon_core_tests PRIVATE
  DataFolderTest.cpp
  FactoryFilesTest.cpp
  PeFileTest.cpp
  SystemSettingsFileTest.cpp
  UserFilesTest.cpp
)
