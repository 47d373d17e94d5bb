# Writes a C++ source with the bytes of a file; called by norel_embed.
file(READ ${INPUT} bytes HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE ${OUTPUT} "#include \"${HEADER}\"

std::string_view ${FUNCTION}() {
    static constexpr unsigned char bytes[] = {${bytes}};
    return {reinterpret_cast<const char*>(bytes), sizeof bytes};
}
")
