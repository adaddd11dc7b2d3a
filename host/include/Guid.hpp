#pragma once
// GS::Guid: a 128-bit identifier.

#include "UniString.hpp"

namespace GS {

/// The 16 bytes in the order of the text form: byte 0 is the first pair of digits.
class HOST_API Guid {
public:
    /// The null GUID: all zero.
    Guid() = default;

    /// Reads exactly 36 characters, groups of 8, 4, 4, 4 and 12 hexadecimal digits of either case joined by hyphens.
    /// @return 0; or ErrBadFormat for anything else, and the GUID becomes the null GUID.
    GSErrCode ConvertFromString(const UniString& text);
    GSErrCode ConvertFromString(const char* text);

    /// The 36-character form, upper case.
    UniString ToUniString() const;

    bool IsNull() const;

    friend bool operator==(const Guid& a, const Guid& b) { return std::memcmp(a.bytes, b.bytes, sizeof a.bytes) == 0; }
    friend bool operator!=(const Guid& a, const Guid& b) { return !(a == b); }

    static constexpr GSErrCode ErrBadFormat = -1;

    unsigned char bytes[16] = {};
};

}  // namespace GS
