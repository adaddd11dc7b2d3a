#pragma once
// How the functions of this folder fail: a value or an Error, passed up untouched. Only the outermost caller prints.

#include <string>
#include <utility>
#include <variant>

namespace tables {

/// `message` is complete for a person: which file, where in it, what is wrong, what to do. No line end, no period at
/// its end. Inside this folder it grows on its way up: the place is put before it where it is known.
struct Error {
    std::string message;
};

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
    const Error& error() const { return failure_; }

private:
    Error failure_{};
    bool failed_ = false;
};

}  // namespace tables
