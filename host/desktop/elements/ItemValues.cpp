#include "desktop/elements/ItemValues.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/elements/ValueText.hpp"
#include "updatefile/Designation.hpp"

#include <QStringList>
#include <algorithm>
#include <numeric>

namespace desktop {

namespace {

constexpr std::uint32_t NotRead = 0xffffffff;

std::u16string_view unitsOf(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

/// Numbers first, by their value; then texts, in their natural order.
std::vector<std::uint32_t> ranksOf(const std::vector<QString>& texts) {
    std::vector<QString> folded;
    folded.reserve(texts.size());
    for (const QString& text : texts) folded.push_back(text.toCaseFolded());
    std::vector<std::uint32_t> ranks = naturalRanks(folded);
    std::vector<std::pair<double, std::uint32_t>> numbers;
    for (std::uint32_t i = 0; i < texts.size(); ++i) {
        bool isNumber = false;
        const double value = texts[i].toDouble(&isNumber);
        // "nan" reads as a number, but has no place among them.
        if (isNumber && value == value) numbers.emplace_back(value, i);
    }
    std::sort(numbers.begin(), numbers.end());
    const auto count = static_cast<std::uint32_t>(numbers.size());
    for (std::uint32_t& rank : ranks) rank = rank == NoRank ? NoRank : rank + count;
    for (std::uint32_t i = 0; i < count; ++i) ranks[numbers[i].second] = i;
    return ranks;
}

}  // namespace

std::string Item::designation() const {
    return kind == ItemKind::Property ? updatefile::designationOf(unitsOf(set), unitsOf(name)) : name.toStdString();
}

QString Item::title() const {
    return kind == ItemKind::Property ? QStringLiteral("%1 [%2]").arg(name, set) : name;
}

QString Item::key() const {
    // The set's length says where it ends: any character may stand in a name.
    return QStringLiteral("%1\t%2\t").arg(static_cast<int>(kind)).arg(set.size()) + set + name;
}

std::optional<Item> Item::fromKey(const QString& key) {
    const qsizetype first = key.indexOf(u'\t'), second = key.indexOf(u'\t', first + 1);
    if (first < 0 || second < 0) return {};
    bool isKind = false, isLength = false;
    const int kind = QStringView(key).first(first).toInt(&isKind);
    const qsizetype length = QStringView(key).sliced(first + 1, second - first - 1).toInt(&isLength);
    const QString both = key.sliced(second + 1);
    if (!isKind || kind < 0 || kind > static_cast<int>(ItemKind::Classification)) return {};
    if (!isLength || length < 0 || length > both.size()) return {};
    return Item{static_cast<ItemKind>(kind), both.first(length), both.sliced(length)};
}

void ItemValues::forget() {
    numbers_.clear();
    texts_.clear();
    numberOfText_.clear();
    complete_ = false;
}

const QString& ItemValues::text(const model::Model& model, model::Element element) {
    return texts_[numberOf(model, element)];
}

std::uint32_t ItemValues::numberOf(const model::Model& model, model::Element element) {
    if (numbers_.empty()) numbers_.resize(model.elementCount(), NotRead);
    std::uint32_t& number = numbers_[element];
    if (number != NotRead) return number;
    // What cannot be read has no value here; the element's data say why.
    const QString text = readItem(model, element, item_).value_or(QString());
    const auto known = numberOfText_.constFind(text);
    if (known != numberOfText_.constEnd()) return number = *known;
    number = static_cast<std::uint32_t>(texts_.size());
    texts_.push_back(text);
    numberOfText_.insert(text, number);
    return number;
}

void ItemValues::readAll(const model::Model& model) {
    if (complete_) return;
    const WaitCursor wait;
    for (model::Element element = 0; element < model.elementCount(); ++element) numberOf(model, element);
    complete_ = true;
}

std::optional<QString> readItem(const model::Model& model, model::Element element, const Item& item) {
    std::optional<QString> text;
    if (item.kind == ItemKind::Attribute) {
        const auto attributes = model.attributes(element);
        if (!attributes) return text;
        const std::string name = item.name.toStdString();
        for (const model::Attribute& attribute : *attributes)
            if (attribute.name == name) return toQString(attribute.value);
    } else if (item.kind == ItemKind::Property) {
        model.visitProperties(element, [&](const model::PropertyView& property) {
            if (text || property.name != unitsOf(item.name) || property.set != unitsOf(item.set)) return;
            text = valueText(property);
        });
    } else if (const auto references = model.classifications(element)) {
        for (const model::ClassificationReference& reference : *references)
            if (reference.system == unitsOf(item.name)) return valueText(reference);
    }
    return text;
}

std::vector<model::Element> ItemValues::sorted(const model::Model& model, bool descending) {
    readAll(model);
    const std::vector<std::uint32_t> ranks = ranksOf(texts_);
    std::vector<std::uint32_t> rankOfElement;
    rankOfElement.reserve(numbers_.size());
    for (const std::uint32_t number : numbers_) rankOfElement.push_back(ranks[number]);
    return orderByRank(rankOfElement, descending);
}

std::function<bool(model::Element element)> ItemValues::finding(const model::Model& model, const QString& word) {
    readAll(model);
    std::vector<bool> found;
    found.reserve(texts_.size());
    for (const QString& text : texts_) found.push_back(text.toCaseFolded().contains(word));
    return [this, found = std::move(found)](model::Element element) { return found[numbers_[element]]; };
}

}  // namespace desktop
