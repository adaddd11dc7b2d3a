#pragma once

#include "desktop/plan/PlanMarks.hpp"
#include "frameworks/FrontEnd.hpp"
#include "model/Model.hpp"

#include <vector>

namespace desktop {

/// Which elements the rows of an open dialog's list are about, and how these rows stand.
///
/// Any list qualifies whose rows have an element's GUID in one of their cells; nothing else of the add-on is known here
/// but the texts that its rows show. Rows that begin with a tick text are updates, and marked; others only name
/// elements.
class ReviewRows {
public:
    explicit ReviewRows(const model::Model& source) : model_(source) {}

    /// Reads the list anew. GUIDs are looked up only for rows that were not there before.
    void read(const frontend::List& list);

    /// The element of a row, counted from 0.
    std::optional<model::Element> element(int row) const;
    /// The rows about an element, counted from 0, in the list's order.
    std::vector<int> rowsOf(model::Element element) const;
    const PlanMarks& marks() const { return current_; }
    /// The element named last, by the list's order; nothing where no row names one.
    std::optional<model::Element> lastElement() const;

private:
    std::optional<model::Element> findElement(const frontend::List& list, Int16 row) const;

    const model::Model& model_;
    std::vector<std::optional<model::Element>> elements_;
    PlanMarks current_;
};

/// How a row stands, from what it shows; None for a row that is no update.
Mark rowMark(const frontend::List& list, Int16 row);

}  // namespace desktop
