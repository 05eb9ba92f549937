# Writes the style and the script of library pages into a C++ source:
#   cmake -DSTYLE=page.css -DSCRIPT=page.js -DOUTPUT=page_assets.cpp -P embed_page.cmake

# hash_of(FILE RESULT): the file's hash as a Content-Security-Policy names it. Three hexadecimal
# digits are two of base 64; the 64 of a hash want two zeros more, for which one `=` stands.
function(hash_of file result)
  set(alphabet ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
  file(SHA256 ${file} digits)
  string(APPEND digits 00)
  set(hash "")
  foreach(at RANGE 0 63 3)
    string(SUBSTRING ${digits} ${at} 3 three)
    math(EXPR high "0x${three} >> 6")
    math(EXPR low "0x${three} & 63")
    string(SUBSTRING ${alphabet} ${high} 1 first)
    string(SUBSTRING ${alphabet} ${low} 1 second)
    string(APPEND hash ${first}${second})
  endforeach()
  string(SUBSTRING ${hash} 0 43 hash)
  set(${result} "sha256-${hash}=" PARENT_SCOPE)
endfunction()

file(READ ${STYLE} style)
file(READ ${SCRIPT} script)
hash_of(${STYLE} style_hash)
hash_of(${SCRIPT} script_hash)
file(
  WRITE ${OUTPUT}
  "#include \"cli/page_assets.h\"\n\nnamespace quorbind::page_assets {\n\n"
  "const std::string_view kStyle = R\"embedded(${style})embedded\";\n"
  "const std::string_view kScript = R\"embedded(${script})embedded\";\n"
  "const std::string_view kStyleHash = \"${style_hash}\";\n"
  "const std::string_view kScriptHash = \"${script_hash}\";\n\n"
  "}  // namespace quorbind::page_assets\n")
