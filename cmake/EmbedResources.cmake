# cmake -DOUT=file.cpp -DFILES="a.rc;b.rc" -P EmbedResources.cmake
# Writes a C++ file holding each resource script's text, so the module carries its
# dialog templates and strings inside itself and needs no resource file beside it.
set(body "// Generated from res/*.rc at build time; do not edit.\n#include \"res/embedded.h\"\n\nnamespace kestra::res {\n\nconst std::vector<EmbeddedScript>& EmbeddedScripts() {\n  static const std::vector<EmbeddedScript> scripts = {\n")
foreach(f ${FILES})
  file(READ ${f} text)
  get_filename_component(name ${f} NAME)
  string(FIND "${text}" ")kestra_rc\"" bad)
  if(NOT bad EQUAL -1)
    message(FATAL_ERROR "${f} holds the embedding delimiter")
  endif()
  string(APPEND body "      {\"${name}\", R\"kestra_rc(${text})kestra_rc\"},\n")
endforeach()
string(APPEND body "  };\n  return scripts;\n}\n\n}  // namespace kestra::res\n")
file(WRITE ${OUT}.tmp "${body}")
file(COPY_FILE ${OUT}.tmp ${OUT} ONLY_IF_DIFFERENT)
