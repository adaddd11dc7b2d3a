#pragma once
// How the functions of this folder fail: a value or an Error, passed up untouched. Only the outermost caller prints.

#include "base/Result.hpp"

#include <string>

namespace tables {

/// `message` is complete for a person: which file, where in it, what is wrong, what to do. No line end, no period at
/// its end. Inside this folder it grows on its way up: the place is put before it where it is known.
struct Error {
    std::string message;
};

template <class Value>
using Result = base::Result<Value, Error>;
using Status = base::Status<Error>;

}  // namespace tables
