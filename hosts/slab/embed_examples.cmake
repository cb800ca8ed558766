# Writes the files of FILES as C++ initialisers {name, text} to OUTPUT.

set(rows "")
foreach(file ${FILES})
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} text HEX)
  # Bytes, not a literal: no text can end it early and no compiler limits its length.
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${text}")
  string(APPEND rows "{\"${name}\", {${bytes}}},\n")
endforeach()
file(WRITE ${OUTPUT} "${rows}")
