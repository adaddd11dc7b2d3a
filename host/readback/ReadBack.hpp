#pragma once
// The rows of a review list, read back: what each asked for, what the model holds after Apply, and how the two can be
// made the same.

#include "readback/Items.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace readback {

/// What a row of the list stands for.
struct AskedRow {
    model::Guid guid{};
    std::string item;
    std::string asked;               ///< Before the add-on's own conversion.
    std::optional<std::string> old;  ///< That the table gives; nothing where it gives none.
    DecimalSign sign = DecimalSign::Point;
};

/// How a row stands after Apply.
enum class RowState : std::uint8_t { NotTicked, Done, Failed };

struct RowOutcome {
    std::optional<std::string> stored;  ///< Nothing where nothing was written.
    std::optional<bool> asAsked;        ///< Nothing for a row that was not ticked.
    bool exact = false;                 ///< Stored by storeExactly().
    std::string obstacle;               ///< Why storeExactly() could not; a clause without period.
};

/// Looks at the model before Apply, and again after it. The model must be the same one throughout.
class ReadBack {
public:
    ReadBack(model::Model& model, std::vector<AskedRow> rows);

    std::size_t size() const { return rows_.size(); }
    const AskedRow& row(std::size_t index) const { return rows_[index].asked; }

    /// The old value of the table where the model holds another one; nothing where both agree or the table gives none.
    std::optional<std::string> conflict(std::size_t index) const {
        return rows_[index].conflict ? rows_[index].asked.old : std::nullopt;
    }

    /// To be called after Apply, with a state for each row.
    void read(const std::vector<RowState>& states);
    const RowOutcome& outcome(std::size_t index) const { return rows_[index].outcome; }

    /// Writes what differs where the item can hold it, as one undoable command "Store as asked". Of several rows about
    /// one item the last counts. Rows that the add-on refused stay refused.
    /// @return how many rows it wrote; the command is not there where it is none.
    model::Result<std::size_t> storeExactly();
    /// How many rows storeExactly() would try to write and has not tried since the last read().
    std::size_t storable();

private:
    struct Row {
        AskedRow asked;
        std::optional<model::Element> element;
        Place place;
        Stored held;  // when the model was last looked at
        RowOutcome outcome;
        RowState state = RowState::NotTicked;
        bool conflict = false;
        bool tried = false;  ///< By storeExactly(), since the last read().
    };

    void readHeld(model::Element element, const std::vector<Row*>& group);
    void readAll();
    bool differs(const Row& row) const;
    void store(Row& row);
    std::vector<Row*> lastOfEachItem();

    model::Model& model_;
    std::vector<Row> rows_;
    std::map<model::Element, std::vector<Row*>> byElement_;
};

}  // namespace readback
