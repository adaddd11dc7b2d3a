#include "Guid.hpp"

#include <uuid/uuid.h>

#include <algorithm>

namespace GS {

namespace {

constexpr USize TextLength = 36;

}  // namespace

GSErrCode Guid::ConvertFromString(const UniString& text) {
    // The length in UTF-16 is checked first: what is not 36 ASCII characters has another one or is refused by the
    // parser.
    if (text.GetLength() == TextLength && uuid_parse(text.ToCStr(), bytes) == 0) return NoError;
    *this = Guid();
    return ErrBadFormat;
}

GSErrCode Guid::ConvertFromString(const char* text) {
    return ConvertFromString(UniString(text));
}

UniString Guid::ToUniString() const {
    char text[TextLength + 1];
    uuid_unparse_upper(bytes, text);
    return UniString(text);
}

bool Guid::IsNull() const {
    return std::all_of(std::begin(bytes), std::end(bytes), [](unsigned char byte) { return byte == 0; });
}

}  // namespace GS
