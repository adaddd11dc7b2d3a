#pragma once
// The add-on's import dialog in the words of its user.

#include "frameworks/FrontEnd.hpp"

#include <iosfwd>
#include <string>
#include <vector>

namespace testing_support {

/// One row of the review list as it stands in the list, UTF-8.
struct ImportRow {
    std::string tick, name, type, guid, item, current, proposed, remarks;
    Int16 status = 0;
    bool red = false;

    bool ticked() const { return tick == "[X]"; }
    bool tickable() const { return status == DG_IS_ENABLE; }
    friend bool operator==(const ImportRow&, const ImportRow&) = default;
};
std::ostream& operator<<(std::ostream& stream, const ImportRow& row);

/// Verbs chain: `dialog.tick(2).apply()`. Rows are numbered from 1.
class ImportDialog {
public:
    enum Item : Int16 { Apply = 1, Close = 2, SelectAll = 3, DeselectAll = 4, Review = 5 };
    static constexpr Int16 Resource = 32501;

    explicit ImportDialog(frontend::Dialog& shown) : dialog_(shown) {}

    ImportRow row(Int16 number) const;
    std::vector<ImportRow> rows() const;
    const frontend::List& list() const;
    frontend::Dialog& shown() const { return dialog_; }

    ImportDialog& tick(Int16 row);  ///< A click in the row's tick column: it toggles.
    ImportDialog& selectAll() { return click(SelectAll); }
    ImportDialog& deselectAll() { return click(DeselectAll); }
    ImportDialog& apply() { return click(Apply); }
    ImportDialog& close() { return click(Close); }

private:
    ImportDialog& click(Item item);

    frontend::Dialog& dialog_;
};

}  // namespace testing_support
