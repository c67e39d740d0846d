# Carries data/demo.las inside the host, so the demo runs from any directory.
file(READ ${IN} text)
file(WRITE ${OUT}.tmp "// Generated from data/demo.las; do not edit.\nnamespace petrodb::cli { extern const char* const kDemoLas; const char* const kDemoLas = R\"petrodb_las(${text})petrodb_las\"; }\n")
file(COPY_FILE ${OUT}.tmp ${OUT} ONLY_IF_DIFFERENT)
