target_sources(quillon_core_tests PRIVATE
  MiscSaveTest.cpp
  SavedFilesTest.cpp
  SuggestedNamesTest.cpp
  SysExSavingTest.cpp
)
