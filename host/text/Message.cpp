#include "text/Message.hpp"

#include <atomic>
#include <optional>

namespace text {
namespace {

std::atomic<Translator> current = nullptr;

std::optional<std::string> filled(std::string_view pattern, std::initializer_list<std::string_view> arguments) {
    std::string text;
    std::size_t behind = 0;
    const bool whole =
        forEachPlace(pattern, arguments.size(), [&](std::size_t argument, std::size_t begin, std::size_t end) {
            text.append(pattern, behind, begin - behind).append(arguments.begin()[argument]);
            behind = end;
        });
    if (!whole) return std::nullopt;
    text.append(pattern, behind);
    return text;
}

std::string translated(const char* english) {
    const Translator translator = current;
    return translator == nullptr ? english : translator(english);
}

}  // namespace

void setTranslator(Translator translator) {
    current = translator;
}

std::string Phrase::text() const {
    return *this ? translated(english_) : std::string();
}

std::string fill(const char* english, std::initializer_list<std::string_view> arguments) {
    if (auto text = filled(translated(english), arguments)) return std::move(*text);
    // The compiler has checked this one.
    return *filled(english, arguments);
}

}  // namespace text
