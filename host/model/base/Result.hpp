#pragma once
// How every function of the building model fails: a value or an Error, passed up untouched. Only the outermost caller
// prints.

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

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

/// A value, or why there is none. Asking for the one that is not there throws std::bad_variant_access.
template <class Value>
class [[nodiscard]] Result {
public:
    Result(Value value) : content_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : content_(std::in_place_index<1>, std::move(error)) {}

    explicit operator bool() const { return content_.index() == 0; }
    Value& operator*() { return std::get<0>(content_); }
    const Value& operator*() const { return std::get<0>(content_); }
    Value* operator->() { return &std::get<0>(content_); }
    const Value* operator->() const { return &std::get<0>(content_); }
    const Error& error() const { return std::get<1>(content_); }

private:
    std::variant<Value, Error> content_;
};

/// A result without a value.
class [[nodiscard]] Status {
public:
    Status() = default;
    Status(Error error) : failure_(std::move(error)), failed_(true) {}

    explicit operator bool() const { return !failed_; }
    const Error& error() const { return failure_; }  ///< Only of a failure.

private:
    Error failure_{};
    bool failed_ = false;
};

}  // namespace model
