#pragma once
// IO::File: a file read byte by byte.

#include "Location.hpp"

namespace IO {

/// Open it, read, close it; the destructor closes what is open. Buffered underneath: one byte a call is no loss.
class HOST_API File {
public:
    enum OnNotFound : Int32 { Fail = 0 };  ///< A missing file is not created.
    enum OpenMode : Int32 { ReadMode = 0 };
    enum OnAccessDenied : Int32 { AccessDeniedFail = 2 };  ///< No question to the user: the error code is the answer.

    /// The file's own failures; 0 is success.
    static constexpr GSErrCode ErrNotFound = -43;
    static constexpr GSErrCode ErrAccessDenied = -54;
    static constexpr GSErrCode ErrNotOpen = -38;
    static constexpr GSErrCode ErrEndOfFile = -39;
    static constexpr GSErrCode ErrRead = -36;

    explicit File(const Location& location, OnNotFound onNotFound = Fail);
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File();

    /// @return 0, ErrNotFound, or ErrAccessDenied for whatever else keeps it from being read (a folder, for example).
    GSErrCode Open(OpenMode mode = ReadMode, OnAccessDenied onAccessDenied = AccessDeniedFail);

    /// Reads exactly `count` bytes into `target`.
    /// @param readCount  if not null, receives how many were read.
    /// @return 0; ErrEndOfFile where fewer were left; ErrRead; ErrNotOpen.
    GSErrCode ReadBin(char* target, USize count, USize* readCount = nullptr);

    /// @return 0, or ErrNotOpen.
    GSErrCode Close();

private:
    Location location_;
    char* buffer_ = nullptr;
    USize begin_ = 0;
    USize end_ = 0;
    int descriptor_ = -1;
};

}  // namespace IO
