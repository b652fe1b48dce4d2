# The settings files: Quillonset.dat and the per-user store, the user files,
# Quillonpe.dat, the data folder and the factory files.
target_sources(quillon_core PRIVATE
  DataFolder.cpp
  DataFolder.h
  FactoryFiles.cpp
  FactoryFiles.h
  PeFile.cpp
  PeFile.h
  SystemSettingsFile.cpp
  SystemSettingsFile.h
  UserFiles.cpp
  UserFiles.h
)

# The names of the performance knob destinations are kept as a list of
# records, data/pe-destinations.tsv, and compiled in as an array of C strings.
# The list is checked here: records numbered 1, 2, 3... without a gap, each
# name at most 60 characters, the length of a record of Quillonpe.dat.
set(pe_list ${CMAKE_CURRENT_SOURCE_DIR}/data/pe-destinations.tsv)
set(pe_generated ${CMAKE_CURRENT_BINARY_DIR}/generated/files/data/PeDestinations.inc)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${pe_list})
file(READ ${pe_list} pe_text)
# CMake's lists give ";" and square brackets a meaning of their own, so these stand in
# for them while the text is split into lines.
string(ASCII 1 pe_semicolon)
string(ASCII 2 pe_open)
string(ASCII 3 pe_close)
string(REPLACE ";" "${pe_semicolon}" pe_text "${pe_text}")
string(REPLACE "[" "${pe_open}" pe_text "${pe_text}")
string(REPLACE "]" "${pe_close}" pe_text "${pe_text}")
string(REPLACE "\r" "" pe_text "${pe_text}")
string(REPLACE "\n" ";" pe_lines "${pe_text}")
set(pe_inc "// Made by files/Settings.cmake from files/data/pe-destinations.tsv.\n")
set(pe_expected 1)
foreach(pe_line IN LISTS pe_lines)
  if(pe_line STREQUAL "" OR pe_line MATCHES "^#")
    continue()
  endif()
  if(NOT pe_line MATCHES "^([0-9]+)\t(.*)$")
    message(FATAL_ERROR "pe-destinations.tsv: not a record: ${pe_line}")
  endif()
  set(pe_number ${CMAKE_MATCH_1})
  set(pe_name "${CMAKE_MATCH_2}")
  if(NOT pe_number EQUAL pe_expected)
    message(FATAL_ERROR "pe-destinations.tsv: record ${pe_number} where ${pe_expected} was due")
  endif()
  string(REPLACE "${pe_semicolon}" ";" pe_name "${pe_name}")
  string(REPLACE "${pe_open}" "[" pe_name "${pe_name}")
  string(REPLACE "${pe_close}" "]" pe_name "${pe_name}")
  string(LENGTH "${pe_name}" pe_length)
  if(pe_length GREATER 60)
    message(FATAL_ERROR "pe-destinations.tsv: record ${pe_number} is longer than 60 characters")
  endif()
  string(REPLACE "\\" "\\\\" pe_name "${pe_name}")
  string(REPLACE "\"" "\\\"" pe_name "${pe_name}")
  string(APPEND pe_inc "\"${pe_name}\",\n")
  math(EXPR pe_expected "${pe_expected} + 1")
endforeach()
# Written only when it changes, so that a new configuration compiles nothing
# again.
set(pe_old "")
if(EXISTS ${pe_generated})
  file(READ ${pe_generated} pe_old)
endif()
if(NOT pe_old STREQUAL pe_inc)
  file(WRITE ${pe_generated} "${pe_inc}")
endif()
target_include_directories(quillon_core PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/generated)
