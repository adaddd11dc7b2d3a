#pragma once
// A regular expression that a whole text has to match, as ICU understands it.

#include "model/base/Result.hpp"

#include <memory>
#include <string>
#include <string_view>

namespace selection {

class Pattern {
public:
    /// @param expression  UTF-8, without the slashes around it. The error says what is wrong with it.
    static model::Result<Pattern> compile(std::string_view expression);

    /// An expression that tries too many ways on a text, as (a*)*b does, matches nothing from then on; see gaveUp().
    bool matches(std::u16string_view text) const;
    bool gaveUp() const;

private:
    struct Content;
    explicit Pattern(std::shared_ptr<Content> content) : content_(std::move(content)) {}

    std::shared_ptr<Content> content_;  // ICU's matcher cannot be copied, and keeps its place between calls
};

}  // namespace selection
