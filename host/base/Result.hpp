#pragma once
// How the functions of the host's libraries fail: a value or an error, passed up untouched. Only the outermost caller
// prints. Each library has an error type of its own, and names these with it.

#include <utility>
#include <variant>

namespace base {

/// A value, or why there is none. Asking for the one that is not there throws std::bad_variant_access.
template <class Value, class Error>
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
template <class Error>
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

}  // namespace base
