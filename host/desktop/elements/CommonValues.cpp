#include "desktop/elements/CommonValues.hpp"

#include "desktop/QtText.hpp"
#include "desktop/elements/ValueText.hpp"

#include <QHash>
#include <algorithm>

namespace desktop {

namespace {

class Comparison {
public:
    explicit Comparison(const model::Model& model) : model_(model) {}

    void add(model::Element element) {
        ++number_;
        bool complete = true;
        if (const auto attributes = model_.attributes(element)) {
            for (const model::Attribute& attribute : *attributes)
                add({ItemKind::Attribute, {}, toQString(attribute.name)}, toQString(attribute.value), true);
        } else {
            complete = false;
        }
        if (const auto properties = model_.properties(element)) {
            for (const model::Property& property : *properties) {
                add({ItemKind::Property, toQString(property.set), toQString(property.name)}, valueText(property),
                    property.kind == model::PropertyKind::Single);
            }
        } else {
            complete = false;
        }
        if (const auto references = model_.classifications(element)) {
            for (const model::ClassificationReference& reference : *references)
                add({ItemKind::Classification, {}, toQString(reference.system)}, valueText(reference), false);
        } else {
            complete = false;
        }
        unreadable_ += !complete;
    }

    CommonValues result() && {
        std::stable_sort(values_.begin(), values_.end(),
                         [](const CommonValue& a, const CommonValue& b) { return a.item.kind < b.item.kind; });
        return {std::move(values_), unreadable_};
    }

private:
    /// Of several with one name in an element, the first counts, as in the columns of the table.
    void add(const Item& item, const QString& value, bool changeable) {
        const QString key = item.key();
        const auto known = places_.constFind(key);
        if (known == places_.constEnd()) {
            places_.insert(key, values_.size());
            values_.push_back({item, value, 1, false, changeable});
            lastSeen_.push_back(number_);
            return;
        }
        // By a number for each item: a set of the items seen would be emptied for each of many elements.
        if (std::exchange(lastSeen_[*known], number_) == number_) return;
        CommonValue& common = values_[*known];
        ++common.elements;
        common.various = common.various || common.value != value;
        common.changeable = common.changeable && changeable;
    }

    const model::Model& model_;
    std::size_t number_ = 0, unreadable_ = 0;
    std::vector<CommonValue> values_;
    std::vector<std::size_t> lastSeen_;
    QHash<QString, std::size_t> places_;
};

}  // namespace

CommonValues commonValues(const model::Model& model, const std::vector<model::Element>& elements) {
    Comparison comparison(model);
    for (const model::Element element : elements) comparison.add(element);
    return std::move(comparison).result();
}

}  // namespace desktop
