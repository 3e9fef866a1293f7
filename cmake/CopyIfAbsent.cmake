# cmake -D FROM=file -D TO=file -P CopyIfAbsent.cmake: what is there already belongs to who put data into it.
if(NOT EXISTS "${TO}")
  file(COPY_FILE "${FROM}" "${TO}")
endif()
