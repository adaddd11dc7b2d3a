#pragma once
// The words of the frameworks' tests.

#include "frameworks/FrontEnd.hpp"

#include <ostream>
#include <string>
#include <string_view>

/// Shows a text in a failure as UTF-8.
namespace GS {
inline void PrintTo(const UniString& text, std::ostream* stream) {
    *stream << '"' << text.ToCStr().Get() << '"';
}
}  // namespace GS

namespace testing_support {

inline std::string utf8(const GS::UniString& text) {
    return text.ToCStr().Get();
}

/// A text of these code units.
inline GS::UniString units(std::u16string_view text) {
    return GS::UniString(text);
}

/// Collects the debug output while it lives.
class DebugOutput {
public:
    DebugOutput() : before_(frontend::setDebugSink([this](const char* output) { text += output; })) {}
    ~DebugOutput() { frontend::setDebugSink(before_); }
    DebugOutput(const DebugOutput&) = delete;
    DebugOutput& operator=(const DebugOutput&) = delete;

    std::string text;

private:
    frontend::DebugSink before_;
};

}  // namespace testing_support
