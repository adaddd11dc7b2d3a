#include "selection/Pattern.hpp"

#include "text/Message.hpp"

#include <unicode/regex.h>

namespace selection {

namespace {

/// ICU counts steps of some milliseconds' work in thousands; this many take about a second.
constexpr std::int32_t MostSteps = 500;
constexpr std::int32_t MostStackBytes = 1 << 20;

}  // namespace

struct Pattern::Content {
    std::unique_ptr<icu::RegexMatcher> matcher;
    bool gaveUp = false;
};

model::Result<Pattern> Pattern::compile(std::string_view expression) {
    UErrorCode error = U_ZERO_ERROR;
    const auto text = icu::UnicodeString::fromUTF8({expression.data(), static_cast<std::int32_t>(expression.size())});
    auto content = std::make_shared<Content>();
    content->matcher = std::make_unique<icu::RegexMatcher>(text, 0, error);
    if (U_FAILURE(error)) {
        return model::Error{model::ErrorKind::BadValue,
                            text::message("it is no regular expression ({})", u_errorName(error))};
    }
    content->matcher->setTimeLimit(MostSteps, error);
    content->matcher->setStackLimit(MostStackBytes, error);
    return Pattern(std::move(content));
}

bool Pattern::matches(std::u16string_view text) const {
    // One text is enough: the selection will be refused, so that no other needs its second.
    if (content_->gaveUp) return false;
    UErrorCode error = U_ZERO_ERROR;
    // An alias, no copy. The matcher goes on referring to it, but is asked nothing before the next reset().
    const icu::UnicodeString unicode(false, text.data(), static_cast<std::int32_t>(text.size()));
    content_->matcher->reset(unicode);
    const bool matched = content_->matcher->matches(error);
    content_->gaveUp = U_FAILURE(error);
    return matched && !content_->gaveUp;
}

bool Pattern::gaveUp() const {
    return content_->gaveUp;
}

}  // namespace selection
