#pragma once
// What the review list will show as an item's current value. These are the add-on's own rules for finding and printing
// it: an exported line that is imported again must be reviewed as "Old and new values are the same."

#include "model/Model.hpp"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace updatefile {

/// An element's IFC data, read once for all items.
struct ElementData {
    std::vector<model::Attribute> attributes;
    std::vector<model::Property> properties;
    std::vector<model::ClassificationReference> classifications;
};

struct CurrentText {
    enum class Source : std::uint8_t { None, Attribute, Property, Classification };

    Source source = Source::None;
    std::u16string text;                ///< As compared with the update's value.
    std::u16string classificationName;  ///< Goes behind the text in braces.
    bool plain = true;                  ///< False: a list, a range and so on, of which the text is only a placeholder.
    bool ambiguous = false;  ///< Several properties of that name: the last is shown, the first would be written.
};

/// A property's value as the add-on prints it, reals with six decimals. Empty where there is none that it could print.
std::u16string propertyText(const model::PropertyValue& value);
/// The value of one that is only visited.
model::PropertyValue valueOf(const model::PropertyView& property);

/// @param itemName  the designation up to its "[".
CurrentText currentText(const ElementData& element, std::u16string_view itemName);

/// The same for who asks for many items of one element.
class CurrentTexts {
public:
    explicit CurrentTexts(ElementData element);
    CurrentTexts(const CurrentTexts&) = delete;
    CurrentTexts& operator=(const CurrentTexts&) = delete;

    CurrentText of(std::u16string_view itemName) const;
    /// About how much memory it takes.
    std::size_t bytes() const { return bytes_; }

private:
    struct NamedProperty {
        const model::Property* last = nullptr;
        bool several = false;
    };

    ElementData element_;
    std::size_t bytes_ = 0;
    // The last of each name. Sorted, not hashed: a file can be made so that all its names have one hash.
    std::map<std::string_view, const model::Attribute*> attributes_;
    std::map<std::u16string_view, NamedProperty> properties_;
    std::map<std::u16string_view, const model::ClassificationReference*> classifications_;
};

}  // namespace updatefile
