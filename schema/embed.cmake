# Concatenates the schema sources into one C++ string the library carries.
set(text "")
foreach(f ${INPUTS})
  file(READ ${f} part)
  string(APPEND text "${part}\n")
endforeach()
file(WRITE ${OUT}.tmp "// Generated from schema/*.schema; do not edit.\nnamespace petrodb::schema { extern const char* const kSchemaText; const char* const kSchemaText = R\"petrodb_schema(${text})petrodb_schema\"; }\n")
file(COPY_FILE ${OUT}.tmp ${OUT} ONLY_IF_DIFFERENT)
