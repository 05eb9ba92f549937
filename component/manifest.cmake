# Writes the registration-free manifest: the classes of classes.def with their identities from the
# IDL file. Called with IDL, CLASSES, VERSION, BITS and OUTPUT.

file(READ ${IDL} idl)
# A semicolon would cut the text into a list.
string(REPLACE ";" " " idl "${idl}")
file(STRINGS ${CLASSES} classes REGEX "^QUOR_CLASS")

string(REGEX MATCH "uuid\\(([0-9A-F-]+)\\)[^]]*\\]\n*library" library "${idl}")
set(library_id ${CMAKE_MATCH_1})

set(entries "")
foreach(class IN LISTS classes)
  string(REGEX MATCH "QUOR_CLASS\\((.+), .+, \"(.+)\"\\)" matched "${class}")
  set(name ${CMAKE_MATCH_1})
  set(description ${CMAKE_MATCH_2})
  if(NOT idl MATCHES "uuid\\(([0-9A-F-]+)\\)[^]]*\\]\n *coclass ${name}\n")
    message(FATAL_ERROR "${IDL}: no coclass ${name}")
  endif()
  string(APPEND entries
         "    <comClass clsid=\"{${CMAKE_MATCH_1}}\" tlbid=\"{${library_id}}\"\n"
         "              progid=\"Quorbind.${name}\" threadingModel=\"Apartment\"\n"
         "              description=\"${description}\">\n"
         "      <progid>Quorbind.${name}.1</progid>\n"
         "    </comClass>\n")
endforeach()

if(BITS EQUAL 64)
  set(architecture amd64)
else()
  set(architecture x86)
endif()
file(
  WRITE ${OUTPUT}
  "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
  "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
  "  <assemblyIdentity type=\"win32\" name=\"Quorbind.X\" version=\"${VERSION}.0\"\n"
  "                    processorArchitecture=\"${architecture}\"/>\n"
  "  <file name=\"Quorbind.dll\">\n"
  "    <typelib tlbid=\"{${library_id}}\" version=\"1.0\" helpdir=\"\"/>\n"
  "${entries}"
  "  </file>\n"
  "</assembly>\n")
