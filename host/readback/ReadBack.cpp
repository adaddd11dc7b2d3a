#include "readback/ReadBack.hpp"

#include "text/Message.hpp"

#include <algorithm>
#include <map>
#include <tuple>

namespace readback {

namespace {

/// Whether the old value of a table is what the model holds, written in any of the ways that a table may write it.
bool agrees(std::string_view old, const Stored& held, DecimalSign sign) {
    if (old == textOf(held) || isAsAsked(old, held, sign)) return true;
    // The review list shows the code alone.
    if (held.kind == Stored::Kind::Classification && old == held.text) return true;
    // The placeholder of a list names no value that could have changed.
    return held.kind == Stored::Kind::Other;
}

}  // namespace

ReadBack::ReadBack(model::Model& model, std::vector<AskedRow> rows) : model_(model) {
    // To its full length at once: what follows points into it.
    rows_.resize(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows_[i].asked = std::move(rows[i]);
        if (const auto element = model.find(rows_[i].asked.guid)) byElement_[*element].push_back(&rows_[i]);
    }
    for (const auto& [element, group] : byElement_) {
        std::vector<std::string_view> items;
        for (Row* row : group) {
            row->element = element;
            items.push_back(row->asked.item);
        }
        std::vector<Place> places = placesOf(model, element, items);
        for (std::size_t i = 0; i < group.size(); ++i) group[i]->place = std::move(places[i]);
        readHeld(element, group);
        for (Row* row : group) {
            const auto& old = row->asked.old;
            row->conflict = old && !agrees(*old, row->held, row->asked.sign);
        }
    }
}

void ReadBack::readHeld(model::Element element, const std::vector<Row*>& group) {
    std::vector<const Place*> places;
    for (const Row* row : group) places.push_back(&row->place);
    std::vector<Stored> held = storedAt(model_, element, places);
    for (std::size_t i = 0; i < group.size(); ++i) group[i]->held = std::move(held[i]);
}

void ReadBack::read(const std::vector<RowState>& states) {
    for (std::size_t i = 0; i < rows_.size() && i < states.size(); ++i) {
        rows_[i].state = states[i];
        rows_[i].tried = false;
    }
    readAll();
}

void ReadBack::readAll() {
    for (const auto& [element, group] : byElement_) {
        readHeld(element, group);
        for (Row* row : group) {
            row->outcome.stored.reset();
            row->outcome.asAsked.reset();
            if (row->state == RowState::NotTicked) continue;
            if (row->state == RowState::Done) row->outcome.stored = textOf(row->held);
            row->outcome.asAsked = isAsAsked(row->asked.asked, row->held, row->asked.sign);
        }
    }
}

std::vector<ReadBack::Row*> ReadBack::lastOfEachItem() {
    using Key = std::tuple<model::Element, std::string, std::u16string, std::u16string, std::u16string>;
    // A later row about the same item has written over what the earlier ones did.
    std::map<Key, Row*> last;
    for (Row& row : rows_) {
        if (row.state != RowState::Done || !row.element) continue;
        const Place& place = row.place;
        last[{*row.element, place.attribute, place.set, place.property, place.system}] = &row;
    }
    std::vector<Row*> rows;
    for (const auto& [key, row] : last) rows.push_back(row);
    return rows;
}

void ReadBack::store(Row& row) {
    row.tried = true;
    const model::Status stored =
        storeAsAsked(model_, *row.element, row.place, row.held.kind, row.asked.asked, row.asked.sign);
    row.outcome.exact = static_cast<bool>(stored);
    if (!stored) row.outcome.obstacle = stored.error().message;
}

/// Whether the value is another, or a property was made with a type that is not the standard's.
bool ReadBack::differs(const Row& row) const {
    if (row.outcome.asAsked == false) return true;
    if (row.held.kind == Stored::Kind::Classification && row.asked.asked.empty()) return true;
    if (!row.place.isNew) return false;
    const std::string standard = model_.standardType(row.place.set, row.place.property);
    return !standard.empty() && row.held.type != standard;
}

std::size_t ReadBack::storable() {
    const std::vector<Row*> last = lastOfEachItem();
    return static_cast<std::size_t>(std::count_if(last.begin(), last.end(), [this](const Row* row) {
        return !row->tried && !row->outcome.exact && differs(*row);
    }));
}

model::Result<std::size_t> ReadBack::storeExactly() {
    std::vector<Row*> wanted;
    for (Row* row : lastOfEachItem())
        if (differs(*row)) wanted.push_back(row);
    if (wanted.empty()) return std::size_t{0};
    const auto ran = model_.command(text::message("Store as asked"), [&] {
        for (Row* row : wanted) store(*row);
        return 0;
    });
    if (!ran) return ran.error();
    readAll();
    std::size_t count = 0;
    for (Row* row : wanted) {
        // What was taken counts only if it reads as asked afterwards.
        row->outcome.exact = row->outcome.exact && row->outcome.asAsked == true;
        count += row->outcome.exact ? 1U : 0U;
    }
    return count;
}

}  // namespace readback
