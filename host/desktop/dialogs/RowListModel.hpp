#pragma once

#include "desktop/dialogs/RowNote.hpp"
#include "frameworks/FrontEnd.hpp"

#include <QAbstractTableModel>
#include <QIcon>
#include <QPalette>
#include <map>
#include <vector>

namespace desktop {

/// An add-on's list as table rows. Nothing is copied: each cell is read from the dialog manager when it is painted.
class RowListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// @param list  lives as long as its dialog, which outlives this model.
    explicit RowListModel(const frontend::List& list, QObject* parent = nullptr);

    /// The list's content has changed. Rows that stay keep their place and their selection.
    void refresh();
    /// The colours that texts and signs are drawn on and with.
    void setPalette(const QPalette& palette);

    /// What the host adds to the rows, one each.
    void setNotes(std::vector<RowNote> notes);
    /// The note on a row; one that says nothing where there is none.
    const RowNote& note(int row) const;

    const frontend::List& list() const { return list_; }
    /// The cell as the add-on set it.
    QString cellText(int row, int column) const;
    /// With what the host adds to it.
    QString wholeText(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The column whose texts are ticks, shown as check boxes; -1 where there is none.
    int tickColumn() const { return tickColumn_; }
    /// Whether the add-on has enabled the row.
    bool isEnabled(int row) const;

private:
    QVariant foreground(int row) const;
    void findTickColumn();

    const frontend::List& list_;
    int shownRows_ = 0, shownColumns_ = 0;
    int tickColumn_ = -1;
    QPalette palette_;
    std::map<RowState, QIcon> signs_;
    std::vector<RowNote> notes_;
};

}  // namespace desktop
