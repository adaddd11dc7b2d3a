#include "desktop/dialogs/RowListModel.hpp"

#include "desktop/QtText.hpp"
#include "desktop/dialogs/RowLook.hpp"
#include "text/Unicode.hpp"
#include "updatefile/ReviewList.hpp"

#include <utility>

namespace desktop {

namespace {

/// The dialog manager counts rows and columns from 1, Qt from 0.
Int16 counted1(int index) {
    return static_cast<Int16>(index + 1);
}

/// A cell is one line; a line break in a text of the model would push the rest of it out of sight.
QString shownText(QString text) {
    for (QChar& c : text) {
        if (c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) c = u' ';
    }
    return visible(std::move(text));
}

}  // namespace

RowListModel::RowListModel(const frontend::List& list, QObject* parent)
    : QAbstractTableModel(parent),
      list_(list),
      shownRows_(list.rowCount()),
      shownColumns_(static_cast<int>(list.tabFields().size())) {
    findTickColumn();
}

void RowListModel::refresh() {
    const int nowRows = list_.rowCount();
    const int nowColumns = static_cast<int>(list_.tabFields().size());
    findTickColumn();
    // The dialog manager says that something changed, not what. Add-ons append rows, or empty the list to fill it anew.
    if (nowColumns != shownColumns_ || nowRows < shownRows_) {
        beginResetModel();
        shownRows_ = nowRows;
        shownColumns_ = nowColumns;
        endResetModel();
        return;
    }
    if (nowRows > shownRows_) {
        beginInsertRows({}, shownRows_, nowRows - 1);
        shownRows_ = nowRows;
        endInsertRows();
    }
    if (shownRows_ && shownColumns_) Q_EMIT dataChanged(index(0, 0), index(shownRows_ - 1, shownColumns_ - 1));
    if (shownColumns_) Q_EMIT headerDataChanged(Qt::Horizontal, 0, shownColumns_ - 1);
}

QString RowListModel::cellText(int row, int column) const {
    return toQString(list_.cell(counted1(row), counted1(column)));
}

int RowListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows_;
}

int RowListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownColumns_;
}

QVariant RowListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= shownRows_) return {};
    if (role == Qt::DisplayRole) return shownText(wholeText(index.row(), index.column()));
    if (role == Qt::ForegroundRole) return foreground(index.row());
    if (index.column() == tickColumn_ && role == Qt::CheckStateRole) {
        return cellText(index.row(), tickColumn_) == toQString(updatefile::reviewlist::Ticked) ? Qt::Checked
                                                                                               : Qt::Unchecked;
    }
    if (index.column() == tickColumn_ && role == Qt::AccessibleTextRole)
        return data(index, Qt::CheckStateRole) == Qt::Checked ? tr("ticked") : tr("not ticked");
    if (index.column() + 1 == shownColumns_ && role == Qt::DecorationRole) {
        const auto found = signs_.find(note(index.row()).state);
        if (found != signs_.end() && !found->second.isNull()) return found->second;
    }
    return {};
}

void RowListModel::setPalette(const QPalette& palette) {
    palette_ = palette;
    signs_.clear();
    for (const RowState state :
         {RowState::Done, RowState::Otherwise, RowState::Conflict, RowState::Error, RowState::Unchanged})
        signs_[state] = sign(state, palette_);
}

bool RowListModel::isEnabled(int row) const {
    return list_.status(counted1(row)) == DG_IS_ENABLE;
}

/// Looked for in the first row, then in all: a text of the model may be "[X]", too.
void RowListModel::findTickColumn() {
    tickColumn_ = -1;
    const int rows = list_.rowCount();
    const auto isTick = [this](int row, int column) {
        const std::string text = text::toUtf8(list_.cell(counted1(row), counted1(column)).View());
        return text == updatefile::reviewlist::Ticked || text == updatefile::reviewlist::Unticked;
    };
    const auto isTickInAll = [&](int column) {
        for (int row = 0; row < rows; ++row)
            if (!isTick(row, column)) return false;
        return rows > 0;
    };
    for (int column = 0; column < static_cast<int>(list_.tabFields().size()) && tickColumn_ < 0; ++column)
        if (isTickInAll(column)) tickColumn_ = column;
}

/// The last column has the add-on's remark, and behind it the host's.
QString RowListModel::wholeText(int row, int column) const {
    QString text = cellText(row, column);
    const QString& added = note(row).text;
    if (column + 1 != shownColumns_ || added.isEmpty()) return text;
    return text.trimmed().isEmpty() ? added : text + QStringLiteral(" – ") + added;
}

void RowListModel::setNotes(std::vector<RowNote> notes) {
    notes_ = std::move(notes);
    if (shownRows_ && shownColumns_) Q_EMIT dataChanged(index(0, 0), index(shownRows_ - 1, shownColumns_ - 1));
}

const RowNote& RowListModel::note(int row) const {
    static const RowNote none;
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && at < notes_.size() ? notes_[at] : none;
}

QVariant RowListModel::foreground(int row) const {
    if (const QColor color = textColor(note(row).state, palette_); color.isValid()) return color;
    if (const auto color = list_.color(counted1(row))) {
        return readableOn(palette_.color(QPalette::Base), QColor::fromRgba64(color->red, color->green, color->blue));
    }
    if (!isEnabled(row)) return textColor(RowState::Unchanged, palette_);
    return {};
}

QVariant RowListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    const auto& header = list_.header();
    if (role != Qt::DisplayRole || section < 0 || static_cast<std::size_t>(section) >= header.size()) return {};
    return toQString(header[static_cast<std::size_t>(section)].text);
}

}  // namespace desktop
