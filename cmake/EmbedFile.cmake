# Script: writes OUTPUT, a C++ file that defines SYMBOL as the bytes of INPUT.
file(READ "${INPUT}" hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "((0x..,){20})" "\\1\n" bytes "${bytes}")
file(WRITE "${OUTPUT}"
"#include \"Embedded.h\"

namespace Orlek::Detail {
namespace {
constexpr char ${SYMBOL}_bytes[] = {
${bytes}
};
}  // namespace
constinit const std::string_view ${SYMBOL}{${SYMBOL}_bytes, sizeof ${SYMBOL}_bytes};
}  // namespace Orlek::Detail
")
