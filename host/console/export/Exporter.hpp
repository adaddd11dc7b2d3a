#pragma once
// Turns elements' current values into update-file lines.

#include "updatefile/ExportLine.hpp"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace console {

/// The values that had to be left out, by reason and item.
class LeftOut {
public:
    struct Group {
        updatefile::Obstacle obstacle;
        std::string item;
        std::uint64_t count = 0;
        std::vector<std::string> examples;  ///< The first few elements' GUIDs.
    };

    void add(updatefile::Obstacle obstacle, const std::string& item, const std::string& guid);

    std::vector<Group> groups() const;
    /// "12 values of FireRating[WallCommon] left out: REASON (GUID, GUID, GUID and 9 more)"
    static std::string text(const Group& group);

private:
    std::map<std::pair<updatefile::Obstacle, std::string>, Group> byReason_;
};

struct ExportedValue {
    const std::string& guid;
    const std::string& item;
    const std::string& value;
    std::size_t place;  ///< Of the item, among those asked for.
    bool missing;       ///< The element has no such item; the value is empty.
};

/// What becomes of an item that an element has not got.
enum class Missing : std::uint8_t { LeaveOut, Include };

class Exporter {
public:
    using Sink = std::function<void(const ExportedValue&)>;

    Exporter(const model::Model& model, std::vector<std::string> items, Missing missing, Sink sink);

    /// Throws Failure where the element's data cannot be read.
    void write(model::Element element);

    std::uint64_t lineCount() const { return lineCount_; }
    const LeftOut& leftOut() const { return leftOut_; }
    std::size_t itemCount() const { return items_.size(); }
    /// The items that none of the elements written has.
    std::vector<std::string> itemsOfNobody() const;
    /// Elements that have an item in several property sets, of which the import shows the last and writes the first.
    const std::map<std::string, std::uint64_t>& ambiguous() const { return ambiguous_; }

private:
    struct Item {
        std::string text;
        std::u16string name;
        bool met = false;  ///< On an element.
    };

    void writeItem(const updatefile::LineSubject& subject, const updatefile::ElementData& data, std::size_t place);

    const model::Model& model_;
    std::vector<Item> items_;
    Missing missing_;
    Sink sink_;
    std::uint64_t lineCount_ = 0;
    LeftOut leftOut_;
    std::map<std::string, std::uint64_t> ambiguous_;
};

}  // namespace console
