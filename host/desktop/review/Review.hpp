#pragma once

#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/plan/PlanMarks.hpp"
#include "desktop/review/PickedUpdates.hpp"
#include "desktop/review/ReviewNotes.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <memory>
#include <vector>

namespace desktop {

class ElementPanel;
class PlanPanel;
class ReviewBar;

/// Which elements the rows of an open dialog's list are about, and how these rows stand.
///
/// Any list qualifies whose rows have an element's GUID in one of their cells; nothing else of the add-on is known here
/// but the texts that its rows show. Rows that begin with a tick text are updates, and marked; others only name
/// elements.
class ReviewRows {
public:
    explicit ReviewRows(const model::Model& model) : model_(model) {}

    /// Reads the list anew. GUIDs are looked up only for rows that were not there before.
    void read(const frontend::List& list);

    /// The element of a row, counted from 0.
    std::optional<model::Element> element(int row) const;
    /// The rows about an element, counted from 0, in the list's order.
    std::vector<int> rowsOf(model::Element element) const;
    const PlanMarks& marks() const { return marks_; }
    /// How each row stands.
    const std::vector<Mark>& rowMarks() const { return rowMarks_; }
    /// The element named last, by the list's order; nothing where no row names one.
    std::optional<model::Element> lastElement() const;

private:
    std::optional<model::Element> findElement(const frontend::List& list, Int16 row) const;

    const model::Model& model_;
    std::vector<std::optional<model::Element>> elements_;
    PlanMarks marks_;
    std::vector<Mark> rowMarks_;
};

/// How a row stands, from what it shows; None for a row that is no update.
Mark rowMark(const frontend::List& list, Int16 row);

/// Ties an open dialog to the main window: the elements of its rows are marked in the plan, the element of its current
/// row is the selected one everywhere, and a click on an element in the plan goes to its row. A review of updates gets
/// what the host knows of its rows, and of the file that they come from.
class Review : public QObject {
    Q_OBJECT

public:
    /// The windows that it ties together, and what it is about.
    struct Parts {
        Document& document;
        const host::Host& host;
        PlanPanel& plan;
        ElementPanel& elements;
        AddOnDialog& dialog;
        const PickedUpdates* updates;  ///< Null where the dialog shows no file's.
    };
    explicit Review(const Parts& parts);
    ~Review() override;

    /// Null where the dialog shows no updates.
    ReviewBar* bar() const { return bar_; }

    /// What a report tells of it; nothing where the dialog shows no file's updates.
    std::optional<importing::ReviewedUpdates> reviewed() const;
    /// Whether the dialog looks elements up: it has a field for a GUID and a list that is no review.
    bool looksUp() const { return fieldItem_ != 0 && bar_ == nullptr; }
    /// Types the element's GUID there and presses the dialog's first button, as a user would.
    void lookUp(model::Element element);

Q_SIGNALS:
    void failed(const QString& what);
    /// What the user wants next; the dialog is open until somebody closes it.
    void saveWanted();
    void undoWanted();
    void reportWanted();

private:
    void showUpdates();
    void showHints();
    void showNotes();
    void storeAsAsked();
    void takeRows();
    void showNewest();
    void selectRow(Int16 item, int row);
    void takeClick(model::Element element);
    void showRowOf(model::Element element);
    QStringList remarksOn(model::Element element) const;

    Document& document_;
    const host::Host& host_;
    PlanPanel& plan_;
    ElementPanel& elements_;
    AddOnDialog& dialog_;
    const PickedUpdates* updates_;
    Int16 listItem_ = 0;   ///< The dialog's first list; 0 where it has none.
    Int16 fieldItem_ = 0;  ///< Its first text field.
    int rowsSeen_ = 0;
    std::unique_ptr<ReviewRows> rows_;
    std::unique_ptr<ReviewNotes> notes_;
    ReviewBar* bar_ = nullptr;
    QStringList hints_;
    std::optional<model::Element> newest_;
    bool shownBefore_ = false;
};

}  // namespace desktop
