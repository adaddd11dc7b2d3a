#pragma once
// Names that a person may have meant: written in another case, with blanks, or with a letter wrong.

#include <cstddef>
#include <string>
#include <string_view>

namespace model::ifc {

/// How many letters have to be added, left out, replaced or changed with their neighbour to make one of the other.
/// @return `bound` + 1 where it is more than `bound`: the work is then cut short.
std::size_t editDistance(std::string_view a, std::string_view b, std::size_t bound);

/// Finds the candidate that is nearest to a name; case, blanks, hyphens and low lines do not count. Short names must be
/// met more closely: there a wrong letter makes another word.
class NearestName {
public:
    explicit NearestName(std::string_view name);

    void offer(std::string_view candidate);
    /// Empty where nothing was near enough, the name itself was offered, or several came equally near.
    std::string_view found() const { return exact_ || several_ ? std::string_view() : best_; }

private:
    std::string_view name_;
    std::string plain_;
    std::size_t bound_;
    std::size_t distance_;
    std::string_view best_;
    bool exact_ = false;
    bool several_ = false;
};

}  // namespace model::ifc
