#pragma once
// What the element table shows, sorts and searches, gathered from the model once.
//
// A filter must answer while the user types, with hundreds of thousands of elements. So the texts that repeat (storeys,
// types, classes) are kept once each and searched once per word; names are kept ready in lower case, end to end in one
// block; GUIDs stay 16 bytes and are compared as text only for words that could be a part of one.

#include "model/Model.hpp"

#include <QString>
#include <functional>
#include <string>
#include <vector>

namespace desktop {

enum class ElementColumn : std::uint8_t { Storey, Type, Name, Room, Guid, Class };
inline constexpr int ElementColumnCount = 6;

/// One of the building's storeys, or the place of the elements that stand in none.
struct StoreyInfo {
    QString name;  ///< Empty for "in none".
    std::optional<double> elevation;
    std::uint32_t elementCount = 0;
};

/// Plain data: built on the thread that has opened the model, used on the user's once that one has ended.
class ElementIndex {
public:
    explicit ElementIndex(const model::Model& model);

    std::uint32_t size() const { return static_cast<std::uint32_t>(rows_.size()); }
    const QString& type(model::Element element) const { return types_[rows_[element].type].text; }
    const QString& ifcClass(model::Element element) const { return classes_[rows_[element].ifcClass].text; }
    const model::Guid& guid(model::Element element) const { return guids_[element]; }
    std::int32_t typeId(model::Element element) const { return rows_[element].typeId; }
    /// Openings, annotations and the like, see model::ifc::isAid.
    bool isAid(model::Element element) const { return classes_[rows_[element].ifcClass].aid; }
    std::uint32_t aidCount() const { return aidCount_; }
    /// The names of the rooms that the element belongs to, see model::rooms. Empty where it belongs to none.
    const QString& room(model::Element element) const { return rooms_[rows_[element].room].text; }
    bool hasRooms() const { return rooms_.size() > 1; }

    /// Lowest first; those of unknown height after them, "in none" last.
    const std::vector<StoreyInfo>& storeys() const { return storeys_; }
    /// Position of the element's storey in storeys().
    std::uint32_t storey(model::Element element) const { return rows_[element].storey; }

    /// All elements in the order of a column; elements that are equal there stay in file order.
    std::vector<model::Element> sorted(ElementColumn column, bool descending) const;
    /// What else a filter looks at: whether a word, case folded, is found in a further column of an element.
    using Further = std::function<std::function<bool(model::Element element)>(const QString& word)>;
    /// Those of `order` that have every word of `text` in one of their columns. Case does not matter.
    /// @param further  may be empty.
    std::vector<model::Element> filtered(const std::vector<model::Element>& order, const QString& text,
                                         const Further& further = {}) const;

    /// Takes the names from the model anew, after an edit, undo or redo.
    void refreshNames(const model::Model& model);

private:
    struct Row {
        std::uint32_t storey = 0, room = 0;
        std::uint16_t type = 0, ifcClass = 0;
        std::int32_t typeId = 0;
    };
    struct Shared {
        QString text;
        QString folded;
        bool aid = false;  ///< Of a class.
    };
    struct Word;

    void gatherStoreys(const model::Model& model, std::vector<QString>& storeyOf);
    void gatherRooms(const model::Model& model);
    void nameRooms(const model::Model& model);
    std::vector<model::Element> sortedByShared(const std::vector<Shared>& texts,
                                               const std::function<std::uint32_t(const Row& row)>& number,
                                               bool descending) const;
    std::string_view nameKey(model::Element element) const;
    Word prepare(const QString& text) const;
    bool matches(model::Element element, const Word& word) const;

    std::vector<Row> rows_;
    std::vector<model::Guid> guids_;
    std::vector<Shared> types_, classes_;
    std::uint32_t aidCount_ = 0;
    std::vector<std::vector<model::Element>> roomSets_;  ///< The first one is no room.
    std::vector<Shared> rooms_;                          ///< Their names.
    std::vector<StoreyInfo> storeys_;
    std::string nameKeys_;                 ///< UTF-8, case folded, end to end.
    std::vector<std::uint64_t> nameEnds_;  ///< Where each element's key ends in nameKeys_.
};

/// The name that people know the element by: a room's with what it is used for, "1.03 Kitchen".
QString shownName(const model::Model& model, model::Element element);

/// The places of texts, case folded, in their natural order; NoRank for empty ones, which stand last whichever way the
/// order goes: who sorts by a column looks for those that have something there.
inline constexpr std::uint32_t NoRank = 0xffffffff;
std::vector<std::uint32_t> naturalRanks(const std::vector<QString>& texts);
/// All elements by the ranks that they have; equal ones stay in file order.
std::vector<model::Element> orderByRank(const std::vector<std::uint32_t>& ranks, bool descending);

/// Order of two texts in which runs of digits count as numbers: "wall 9" before "wall 10".
bool naturalLess(std::string_view a, std::string_view b);

}  // namespace desktop
