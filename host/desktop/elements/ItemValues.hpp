#pragma once
// An item of the model - an attribute, a property, a classification - as a column of the table.

#include "desktop/elements/ElementIndex.hpp"
#include "updatefile/ItemCensus.hpp"

#include <QHash>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace desktop {

using updatefile::ItemKind;

struct Item {
    ItemKind kind = ItemKind::Attribute;
    QString set;   ///< Of a property.
    QString name;  ///< Of a classification, its system.

    bool operator==(const Item&) const = default;
    /// As an update file names it.
    std::string designation() const;
    /// For people: with the set's whole name behind a property's.
    QString title() const;
    /// For keeping it in the settings. @return nothing for a text that is no item's key.
    QString key() const;
    static std::optional<Item> fromKey(const QString& key);
};

/// What an element holds, as a person reads it. Nothing where it has no such item, or it cannot be read.
std::optional<QString> readItem(const model::Model& model, model::Element element, const Item& item);

/// The values of an item: each is read when it is first asked for, or all of them for a sort or a filter. Equal texts
/// are kept once. Reading a model fills its caches, so this belongs to the thread that the model belongs to.
class ItemValues {
public:
    explicit ItemValues(Item item) : item_(std::move(item)) {}

    const Item& item() const { return item_; }
    const QString& text(const model::Model& model, model::Element element);
    std::vector<model::Element> sorted(const model::Model& model, bool descending);
    /// Whether elements' values have a word, case folded, in them.
    std::function<bool(model::Element element)> finding(const model::Model& model, const QString& word);
    /// The model has changed.
    void forget();

private:
    std::uint32_t numberOf(const model::Model& model, model::Element element);
    void readAll(const model::Model& model);

    Item item_;
    std::vector<std::uint32_t> numbers_;  ///< By element, of a text.
    std::vector<QString> texts_;
    QHash<QString, std::uint32_t> numberOfText_;
    bool complete_ = false;
};

}  // namespace desktop
