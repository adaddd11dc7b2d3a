#pragma once
// How every function of the building model fails: a value or an Error, passed up untouched. Only the outermost caller
// prints.

#include "base/Result.hpp"

#include <cstdint>
#include <string>

namespace model {

/// What kind of failure; the services turn a kind into the host's error code.
enum class ErrorKind : std::uint8_t {
    CannotRead,    ///< A file that is missing, not readable, or not what it should be.
    CannotWrite,   ///< A file that could not be written; the old one is untouched unless the message says otherwise.
    ChangedSince,  ///< A file not written over because another program has changed it since; may be forced.
    BadId,         ///< No element of that identifier.
    BadParameter,  ///< The null GUID and the like.
    BadName,       ///< No such attribute; an empty property, set or system name.
    ReadOnly,      ///< GlobalId.
    BadValue,      ///< The text is no value of the declared type.
    Refused,       ///< An edit outside a command; an instance that is not understood and so not edited.
    Nesting,       ///< A command inside a command.
};

/// `message` is complete for a person: what, where, what to do. No line end, no trailing period.
struct Error {
    ErrorKind kind;
    std::string message;
};

template <class Value>
using Result = base::Result<Value, Error>;
using Status = base::Status<Error>;

}  // namespace model
