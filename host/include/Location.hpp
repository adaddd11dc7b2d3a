#pragma once
// IO::Location: where a file or folder is.

#include "UniString.hpp"

namespace IO {

/// A path on this machine, absolute or relative to the working folder. A value; it holds nothing open.
class HOST_API Location {
public:
    static constexpr GSErrCode StatusOK = 0;
    static constexpr GSErrCode StatusMemoryFull = -108;  ///< No memory for the text.
    /// The location names nothing: it was made from an empty text.
    static constexpr GSErrCode StatusError = -7003;

    /// A location that names nothing.
    Location() = default;
    explicit Location(const GS::UniString& text) : path_(text) {}
    explicit Location(const char* text) : path_(text) {}

    GSErrCode GetStatus() const { return path_.IsEmpty() ? StatusError : StatusOK; }

    /// Writes the path as a person reads it. @return GetStatus().
    GSErrCode ToDisplayText(GS::UniString* text) const;

    void Clear() { path_.Clear(); }
    const GS::UniString& GetPath() const { return path_; }

private:
    GS::UniString path_;
};

}  // namespace IO
