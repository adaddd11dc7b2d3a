#include "desktop/elements/ElementIndex.hpp"

#include "desktop/QtText.hpp"
#include "model/Rooms.hpp"
#include "model/base/ElementTypeIds.hpp"
#include "model/ifc/schema/Aids.hpp"
#include "text/Guid.hpp"

#include <QHash>
#include <QStringList>
#include <algorithm>
#include <map>
#include <numeric>

namespace desktop {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Length of the run of digits at the front.
std::size_t digitsAt(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
}

std::string_view withoutZeros(std::string_view digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

/// Could the word be a part of a GUID's text? Shorter ones would find elements that nobody meant.
bool looksLikeGuidPart(const QString& word) {
    return word.size() >= 4 && std::all_of(word.begin(), word.end(), [](QChar c) {
               return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || c == u'-';
           });
}

}  // namespace

bool naturalLess(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        const std::size_t digitsA = digitsAt(a), digitsB = digitsAt(b);
        if (digitsA && digitsB) {
            const std::string_view numberA = withoutZeros(a.substr(0, digitsA));
            const std::string_view numberB = withoutZeros(b.substr(0, digitsB));
            // As digits: a number in a name may be too long for any integer.
            if (numberA.size() != numberB.size()) return numberA.size() < numberB.size();
            if (numberA != numberB) return numberA < numberB;
            a.remove_prefix(digitsA);
            b.remove_prefix(digitsB);
        } else {
            if (a.front() != b.front()) {
                return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front());
            }
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
    }
    return a.size() < b.size();
}

/// A word of the filter, with the answers for the shared texts worked out.
struct ElementIndex::Word {
    std::string folded;
    std::string guidPart;  ///< Empty: no part of a GUID.
    std::optional<model::Guid> guid;
    std::vector<bool> storeys, types, classes, rooms;
    std::function<bool(model::Element)> further;  ///< May be empty.
};

ElementIndex::ElementIndex(const model::Model& model) {
    const auto count = static_cast<model::Element>(model.elementCount());
    rows_.resize(count);
    guids_.resize(count);
    QHash<std::int32_t, std::uint16_t> typeNumbers;
    QHash<QString, std::uint16_t> classNumbers;
    // Some ten types and classes for hundreds of thousands of elements: each row keeps a number of 16 bits.
    const auto shared = [](auto& numbers, std::vector<Shared>& texts, const auto& key, const auto& textOf) {
        const auto known = numbers.constFind(key);
        if (known != numbers.constEnd()) return *known;
        const auto next = static_cast<std::uint16_t>(texts.size());
        const QString text = textOf();
        texts.push_back({text, text.toCaseFolded(), false});
        numbers.insert(key, next);
        return next;
    };
    std::vector<QString> storeyOf(count);
    for (model::Element element = 0; element < count; ++element) {
        const model::ElementInfo info = model.info(element);
        rows_[element].type = shared(typeNumbers, types_, info.typeId, [&] { return toQString(info.typeName.text()); });
        const QString ifcClass = toQString(info.ifcClass);
        const std::size_t classesBefore = classes_.size();
        rows_[element].ifcClass = shared(classNumbers, classes_, ifcClass, [&] { return ifcClass; });
        if (classes_.size() > classesBefore) classes_.back().aid = model::ifc::isAid(model.entity(element));
        aidCount_ += isAid(element);
        rows_[element].typeId = info.typeId;
        guids_[element] = info.guid;
        storeyOf[element] = toQString(model.storey(element));
    }
    gatherStoreys(model, storeyOf);
    gatherRooms(model);
    refreshNames(model);
}

void ElementIndex::gatherStoreys(const model::Model& model, std::vector<QString>& storeyOf) {
    QHash<QString, std::uint32_t> numbers;
    const auto numberOf = [&](const QString& name) {
        const auto known = numbers.constFind(name);
        if (known != numbers.constEnd()) return *known;
        const auto next = static_cast<std::uint32_t>(storeys_.size());
        storeys_.push_back({name, {}, 0});
        numbers.insert(name, next);
        return next;
    };
    for (model::Element element = 0; element < size(); ++element) {
        if (rows_[element].typeId == model::ElementTypeIds::Storey) {
            const QString name = toQString(model.name(element));
            if (const auto origin = model.placement(element)) storeys_[numberOf(name)].elevation = origin->z;
            if (storeyOf[element].isEmpty()) storeyOf[element] = name;  // a storey stands in itself
        }
        rows_[element].storey = numberOf(storeyOf[element]);
        ++storeys_[rows_[element].storey].elementCount;
    }

    // Storeys come in the order in which elements name them; the rows' numbers follow when they are sorted.
    std::vector<std::uint32_t> order(storeys_.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        const StoreyInfo &left = storeys_[a], &right = storeys_[b];
        if (left.name.isEmpty() != right.name.isEmpty()) return right.name.isEmpty();
        if (left.elevation.has_value() != right.elevation.has_value()) return left.elevation.has_value();
        return left.elevation && *left.elevation < *right.elevation;
    });
    std::vector<StoreyInfo> ordered;
    std::vector<std::uint32_t> place(storeys_.size());
    for (const std::uint32_t old : order) {
        place[old] = static_cast<std::uint32_t>(ordered.size());
        ordered.push_back(std::move(storeys_[old]));
    }
    storeys_ = std::move(ordered);
    for (Row& row : rows_) row.storey = place[row.storey];
}

/// Rooms and sets of rooms are few; each row keeps the number of its own.
void ElementIndex::gatherRooms(const model::Model& model) {
    roomSets_ = {{}};
    std::map<std::vector<model::Element>, std::uint32_t> numbers;
    const std::vector<model::InRoom> found = model::rooms(model);
    for (auto it = found.begin(); it != found.end();) {
        const model::Element element = it->element;
        std::vector<model::Element> rooms;
        for (; it != found.end() && it->element == element; ++it) rooms.push_back(it->room);
        const auto [known, isNew] = numbers.try_emplace(rooms, static_cast<std::uint32_t>(roomSets_.size()));
        if (isNew) roomSets_.push_back(std::move(rooms));
        rows_[element].room = known->second;
    }
}

void ElementIndex::nameRooms(const model::Model& model) {
    rooms_.clear();
    for (const std::vector<model::Element>& rooms : roomSets_) {
        QStringList names;
        for (const model::Element room : rooms) names += shownName(model, room);
        const QString text = names.join(QStringLiteral(", "));
        rooms_.push_back({text, text.toCaseFolded(), false});
    }
}

void ElementIndex::refreshNames(const model::Model& model) {
    nameRooms(model);
    // One text for all names, and not a string with room of its own for each of hundreds of thousands.
    nameKeys_.clear();
    nameEnds_.clear();
    nameEnds_.reserve(rows_.size());
    for (model::Element element = 0; element < size(); ++element) {
        nameKeys_ += shownName(model, element).toCaseFolded().toStdString();
        nameEnds_.push_back(nameKeys_.size());
    }
    nameKeys_.shrink_to_fit();
}

std::string_view ElementIndex::nameKey(model::Element element) const {
    const std::uint64_t begin = element ? nameEnds_[element - 1] : 0;
    return std::string_view(nameKeys_).substr(begin, nameEnds_[element] - begin);
}

std::vector<std::uint32_t> naturalRanks(const std::vector<QString>& texts) {
    std::vector<std::string> keys;
    keys.reserve(texts.size());
    for (const QString& text : texts) keys.push_back(text.toStdString());
    std::vector<std::uint32_t> order(texts.size()), ranks(texts.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [&](auto a, auto b) { return naturalLess(keys[a], keys[b]); });
    for (std::uint32_t i = 0; i < order.size(); ++i) ranks[order[i]] = keys[order[i]].empty() ? NoRank : i;
    return ranks;
}

std::vector<model::Element> orderByRank(const std::vector<std::uint32_t>& ranks, bool descending) {
    std::vector<model::Element> order(ranks.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](model::Element a, model::Element b) {
        if (ranks[a] == NoRank || ranks[b] == NoRank) return ranks[b] == NoRank && ranks[a] != NoRank;
        return descending ? ranks[b] < ranks[a] : ranks[a] < ranks[b];
    });
    return order;
}

std::vector<model::Element> ElementIndex::sortedByShared(const std::vector<Shared>& texts,
                                                         const std::function<std::uint32_t(const Row& row)>& number,
                                                         bool descending) const {
    std::vector<QString> folded;
    for (const Shared& text : texts) folded.push_back(text.folded);
    const std::vector<std::uint32_t> ranks = naturalRanks(folded);
    std::vector<std::uint32_t> rankOfRow;
    rankOfRow.reserve(rows_.size());
    for (const Row& row : rows_) rankOfRow.push_back(ranks[number(row)]);
    return orderByRank(rankOfRow, descending);
}

std::vector<model::Element> ElementIndex::sorted(ElementColumn column, bool descending) const {
    switch (column) {
        case ElementColumn::Type:
            return sortedByShared(
                types_, [](const Row& row) { return row.type; }, descending);
        case ElementColumn::Room:
            return sortedByShared(
                rooms_, [](const Row& row) { return row.room; }, descending);
        case ElementColumn::Class:
            return sortedByShared(
                classes_, [](const Row& row) { return row.ifcClass; }, descending);
        case ElementColumn::Storey:
        case ElementColumn::Name:
        case ElementColumn::Guid:
            break;
    }
    std::vector<model::Element> order(rows_.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto sortBy = [&](const auto& less) {
        if (descending) {
            std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return less(b, a); });
        } else {
            std::stable_sort(order.begin(), order.end(), less);
        }
    };
    if (column == ElementColumn::Storey) sortBy([&](auto a, auto b) { return rows_[a].storey < rows_[b].storey; });
    if (column == ElementColumn::Name) sortBy([&](auto a, auto b) { return naturalLess(nameKey(a), nameKey(b)); });
    if (column == ElementColumn::Guid) sortBy([&](auto a, auto b) { return guids_[a] < guids_[b]; });
    return order;
}

ElementIndex::Word ElementIndex::prepare(const QString& text) const {
    const QString folded = text.toCaseFolded();
    Word word;
    word.folded = folded.toStdString();
    if (looksLikeGuidPart(folded)) word.guidPart = text.toUpper().toStdString();
    // As typed and not folded: GlobalIds tell upper and lower case apart.
    if (text.size() == 22) word.guid = guidFromText(text);
    for (const StoreyInfo& storey : storeys_) word.storeys.push_back(storey.name.toCaseFolded().contains(folded));
    for (const Shared& type : types_) word.types.push_back(type.folded.contains(folded));
    for (const Shared& ifcClass : classes_) word.classes.push_back(ifcClass.folded.contains(folded));
    for (const Shared& room : rooms_) word.rooms.push_back(room.folded.contains(folded));
    return word;
}

bool ElementIndex::matches(model::Element element, const Word& word) const {
    const Row& row = rows_[element];
    if (word.types[row.type] || word.classes[row.ifcClass] || word.storeys[row.storey] || word.rooms[row.room])
        return true;
    if (word.further && word.further(element)) return true;
    if (nameKey(element).find(word.folded) != std::string_view::npos) return true;
    if (word.guid && *word.guid == guids_[element]) return true;
    if (word.guidPart.empty()) return false;
    const auto guid = text::guidCharacters(guids_[element]);
    return std::string_view(guid.data(), guid.size()).find(word.guidPart) != std::string_view::npos;
}

std::vector<model::Element> ElementIndex::filtered(const std::vector<model::Element>& order, const QString& text,
                                                   const Further& further) const {
    std::vector<Word> words;
    for (const QString& part : text.simplified().split(u' ', Qt::SkipEmptyParts)) {
        words.push_back(prepare(part));
        if (further) words.back().further = further(part.toCaseFolded());
    }
    if (words.empty()) return order;
    std::vector<model::Element> kept;
    std::copy_if(order.begin(), order.end(), std::back_inserter(kept), [&](model::Element element) {
        return std::all_of(words.begin(), words.end(), [&](const Word& word) { return matches(element, word); });
    });
    return kept;
}

QString shownName(const model::Model& model, model::Element element) {
    const QString name = toQString(model.name(element));
    if (model.typeId(element) != model::ElementTypeIds::Zone) return name;
    const auto attributes = model.attributes(element);
    if (!attributes) return name;
    for (const model::Attribute& attribute : *attributes) {
        if (attribute.name != "LongName") continue;
        const QString use = toQString(attribute.value);
        if (name.isEmpty() || use.isEmpty() || name == use) return name.isEmpty() ? use : name;
        return name + u' ' + use;
    }
    return name;
}

}  // namespace desktop
