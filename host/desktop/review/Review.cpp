#include "desktop/review/Review.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/dialogs/RowListView.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanPainter.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/review/ReviewBar.hpp"
#include "updatefile/ReviewList.hpp"

#include <algorithm>

namespace desktop {

namespace {

constexpr std::size_t GuidLength = 36;

/// @return the row's cells, which point into `text`.
std::vector<std::u16string_view> cellsOf(std::u16string_view text) {
    std::vector<std::u16string_view> cells;
    while (true) {
        const std::size_t tab = text.find(u'\t');
        cells.push_back(text.substr(0, tab));
        if (tab == std::u16string_view::npos) return cells;
        text.remove_prefix(tab + 1);
    }
}

bool equal(std::u16string_view units, std::string_view ascii) {
    return std::equal(units.begin(), units.end(), ascii.begin(), ascii.end());
}

bool lastCellIs(std::u16string_view row, std::string_view ascii) {
    const std::size_t tab = row.rfind(u'\t');
    return tab != std::u16string_view::npos && equal(row.substr(tab + 1), ascii);
}

}  // namespace

Mark rowMark(const frontend::List& list, Int16 row) {
    const GS::UniString text = list.rowText(row);
    const std::u16string_view units = text.View();
    // Only a row of updates begins with its tick.
    if (!units.starts_with(u"[")) return Mark::None;
    if (lastCellIs(units, updatefile::reviewlist::Error)) return Mark::Error;
    if (lastCellIs(units, updatefile::reviewlist::Done)) return Mark::Done;
    if (list.status(row) != DG_IS_ENABLE) return list.color(row) ? Mark::Error : Mark::Unchanged;
    if (equal(units.substr(0, units.find(u'\t')), updatefile::reviewlist::Ticked)) return Mark::Ticked;
    return Mark::Open;
}

void ReviewRows::read(const frontend::List& list) {
    const Int16 count = list.rowCount();
    // Rows that were there keep their elements: add-ons append, or empty the list to fill it anew.
    if (static_cast<std::size_t>(count) < elements_.size()) elements_.clear();
    for (Int16 row = static_cast<Int16>(elements_.size()); row < count; ++row) {
        elements_.push_back(findElement(list, static_cast<Int16>(row + 1)));
    }
    marks_ = {};
    rowMarks_.clear();
    for (int row = 0; row < count; ++row) {
        const Mark mark = rowMarks_.emplace_back(rowMark(list, static_cast<Int16>(row + 1)));
        const auto& element = elements_[static_cast<std::size_t>(row)];
        if (element && mark != Mark::None) marks_.add(*element, mark);
    }
}

std::optional<model::Element> ReviewRows::element(int row) const {
    if (row < 0 || static_cast<std::size_t>(row) >= elements_.size()) return std::nullopt;
    return elements_[static_cast<std::size_t>(row)];
}

std::optional<model::Element> ReviewRows::lastElement() const {
    const auto found =
        std::find_if(elements_.rbegin(), elements_.rend(), [](const auto& it) { return it.has_value(); });
    return found == elements_.rend() ? std::nullopt : *found;
}

std::vector<int> ReviewRows::rowsOf(model::Element element) const {
    std::vector<int> rows;
    for (std::size_t row = 0; row < elements_.size(); ++row) {
        if (elements_[row] == element) rows.push_back(static_cast<int>(row));
    }
    return rows;
}

std::optional<model::Element> ReviewRows::findElement(const frontend::List& list, Int16 row) const {
    const GS::UniString text = list.rowText(row);
    for (const std::u16string_view cell : cellsOf(text.View())) {
        if (cell.size() != GuidLength) continue;
        const auto guid = guidFromText(QStringView(cell.data(), static_cast<qsizetype>(cell.size())));
        if (!guid) continue;
        if (const auto element = model_.find(*guid)) return element;
    }
    return std::nullopt;
}

Review::Review(const Parts& parts)
    : document_(parts.document),
      host_(parts.host),
      plan_(parts.plan),
      elements_(parts.elements),
      dialog_(parts.dialog),
      updates_(parts.updates) {
    for (const frontend::Item& item : dialog_.content().items()) {
        if (!listItem_ && item.kind == frontend::ItemKind::List) listItem_ = item.number;
        if (!fieldItem_ && item.kind == frontend::ItemKind::EditText) fieldItem_ = item.number;
    }
    if (!listItem_ || !document_.isOpen()) return;
    rows_ = std::make_unique<ReviewRows>(*document_.model());
    if (dialog_.content().list(listItem_)->tabFields().size() == updatefile::reviewlist::ColumnCount) showUpdates();
    plan_.view()->setRemarks([this](model::Element element) { return remarksOn(element); });
    connect(&dialog_, &AddOnDialog::contentChanged, this, &Review::takeRows);
    connect(&dialog_, &AddOnDialog::currentRowChanged, this, &Review::selectRow);
    connect(&plan_, &PlanPanel::elementClicked, this, &Review::takeClick);
    connect(&elements_, &ElementPanel::elementClicked, this, &Review::takeClick);
}

Review::~Review() {
    // The plan outlives the review: it must not go on drawing marks, or asking for remarks, that are gone.
    if (!rows_) return;
    plan_.setMarks(nullptr, false);
    plan_.view()->setRemarks({});
}

void Review::showUpdates() {
    const frontend::List& list = *dialog_.content().list(listItem_);
    notes_ = std::make_unique<ReviewNotes>(*document_.model(), host_, updates_ ? &updates_->part() : nullptr, list);
    bar_ = new ReviewBar(&dialog_);
    dialog_.setFooter(bar_);
    connect(bar_, &ReviewBar::storeAsAskedWanted, this, &Review::storeAsAsked);
    connect(bar_, &ReviewBar::saveWanted, this, &Review::saveWanted);
    connect(bar_, &ReviewBar::undoWanted, this, &Review::undoWanted);
    connect(bar_, &ReviewBar::reportWanted, this, &Review::reportWanted);
    connect(bar_, &ReviewBar::chosen, this, [this](RowChoice choice, const QString& text) {
        dialog_.list(listItem_)->choose(choice, text);
        bar_->setShown(dialog_.list(listItem_)->shownRows());
    });
    dialog_.list(listItem_)->useColumnsOfTheUser(QStringLiteral("review/columns"));
    showHints();
}

void Review::showHints() {
    if (!updates_) return;
    QStringList hints = updates_->hints(*dialog_.content().list(listItem_));
    hints += notes_->hintsOnNames();
    if (hints == hints_) return;
    hints_ = hints;
    dialog_.showHints(updates_->fileName(), hints_);
}

void Review::takeRows() {
    // An edit is seen in the windows as soon as it is made, not only when the dialog closes.
    document_.noteCommand();
    rows_->read(*dialog_.content().list(listItem_));
    if (notes_) {
        notes_->read(*dialog_.content().list(listItem_), rows_->rowMarks());
        showNotes();
    }
    plan_.setMarks(rows_->marks().empty() ? nullptr : &rows_->marks(), !shownBefore_);
    if (rows_->marks().empty()) {
        showNewest();
    } else if (!shownBefore_) {
        shownBefore_ = true;
        selectRow(listItem_, dialog_.list(listItem_)->currentRow());
    }
}

void Review::showNotes() {
    const ReviewTotals totals = notes_->totals();
    dialog_.list(listItem_)->setNotes(notes_->rows());
    bar_->setTotals(totals, notes_->storable());
    bar_->setShown(dialog_.list(listItem_)->shownRows());
    dialog_.setButtonNote(DG_OK, totals.ticked > 0 ? number(totals.ticked) : QString(),
                          totals.ticked > 0 ? QString() : tr("No row is ticked: tick those to write, or all of them"));
    showHints();
}

void Review::storeAsAsked() {
    const WaitCursor wait;
    const auto stored = notes_->storeAsAsked();
    if (!stored) Q_EMIT failed(toQString(stored.error().message));
    document_.noteCommand();
    showNotes();
}

std::optional<importing::ReviewedUpdates> Review::reviewed() const {
    auto reviewed = notes_ ? notes_->reviewed() : std::nullopt;
    if (reviewed && updates_) updates_->describe(*reviewed, *dialog_.content().list(listItem_));
    return reviewed;
}

void Review::lookUp(model::Element element) {
    dialog_.type(fieldItem_, guidText(document_.index()->guid(element)));
    dialog_.press(DG_OK);
}

/// A list of no updates answers a question about an element; the one asked for last is the one to show, in the list
/// from its first row on.
void Review::showNewest() {
    RowListView* list = dialog_.list(listItem_);
    const int rows = list->rows().rowCount();
    if (rows > rowsSeen_) list->showFrom(rowsSeen_);
    rowsSeen_ = rows;
    const auto last = rows_->lastElement();
    if (last && last != newest_) elements_.select(*last);
    newest_ = last;
}

void Review::selectRow(Int16 item, int row) {
    if (item != listItem_) return;
    if (const auto element = rows_->element(row)) elements_.select(*element);
}

void Review::takeClick(model::Element element) {
    if (looksUp()) {
        lookUp(element);
    } else {
        showRowOf(element);
    }
}

/// Clicking on goes through the rows of an element that has several.
void Review::showRowOf(model::Element element) {
    const std::vector<int> found = rows_->rowsOf(element);
    RowListView* view = dialog_.list(listItem_);
    if (found.empty() || !view) return;
    const auto next = std::upper_bound(found.begin(), found.end(), view->currentRow());
    view->showRow(next == found.end() ? found.front() : *next);
}

/// What its rows do to an element, as far as a tool tip has room.
QStringList Review::remarksOn(model::Element element) const {
    using namespace updatefile::reviewlist;
    constexpr std::size_t Most = 8;
    QStringList lines;
    const frontend::List* list = bar_ ? dialog_.content().list(listItem_) : nullptr;
    const std::vector<int> rows = rows_->rowsOf(element);
    for (std::size_t i = 0; list && i < std::min(rows.size(), Most); ++i) {
        const GS::UniString text = list->rowText(static_cast<Int16>(rows[i] + 1));
        const auto cells = cellsOf(text.View());
        if (cells.size() < ColumnCount) continue;
        const QString change =
            toQString(cells[CurrentColumn]).isEmpty()
                ? toQString(cells[NewColumn])
                : QStringLiteral("%1 → %2").arg(toQString(cells[CurrentColumn]), toQString(cells[NewColumn]));
        lines += QStringLiteral("%1: %2 (%3)")
                     .arg(toQString(cells[PropertyColumn]), change,
                          markText(rows_->rowMarks()[static_cast<std::size_t>(rows[i])]));
    }
    if (rows.size() > Most) lines += tr("and %1 more").arg(number(static_cast<qint64>(rows.size() - Most)));
    return lines;
}

}  // namespace desktop
