target_sources(quillon_core PRIVATE
  SuggestedNames.cpp
  SysExSaving.cpp
)
