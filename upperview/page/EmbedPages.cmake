# cmake -DOUT=<file.cpp> -DFILES=<file.toml;...> -P EmbedPages.cmake: the page files as string literals.
# A literal holds 16 kB at most on some compilers, so a text is put together from pieces of lines.
set(code "// Made from upperview/pages/*.toml.\n#include \"upperview/page/page_store.h\"\n\nnamespace sbd {\n\nnamespace {\n\n")
string(APPEND code "constexpr PageSource kSources[] = {\n")
foreach(file IN LISTS FILES)
    get_filename_component(name "${file}" NAME)
    file(READ "${file}" bytes HEX)
    string(LENGTH "${bytes}" size)
    math(EXPR size "${size} / 2") # told, so that no compiler counts a page's bytes while it evaluates constants
    string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
    string(REGEX REPLACE "\\\\x0a" "\\\\n\"\n     \"" bytes "${bytes}")
    string(APPEND code "    {\"${name}\",\n     {\"${bytes}\", ${size}}},\n")
endforeach()
string(APPEND code "};\n\n} // namespace\n\nstd::span<const PageSource> PageSources()\n{\n    return kSources;\n}\n\n} // namespace sbd\n")
file(WRITE "${OUT}" "${code}")
