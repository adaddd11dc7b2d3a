#pragma once

#include "desktop/elements/ItemValues.hpp"

#include <QObject>
#include <QTimer>
#include <vector>

class QMenu;
class QTableView;

namespace desktop {

class ElementTableModel;

/// Which columns the table has, in which order and how wide: chosen in the menu of its header, and remembered.
class ElementColumns : public QObject {
    Q_OBJECT

public:
    ElementColumns(QTableView* view, ElementTableModel* model);
    /// Changes are kept after a moment; what has not been kept yet, is now.
    void keep();

    /// The menu of the header, which another menu may show, too. Filled when it is opened.
    QMenu* menu() const { return menu_; }
    /// Adds an item of the model as the last column, or shows the one that is there.
    void add(const Item& item);
    /// Another model is shown: one without rooms has no use for their column.
    void takeSource();
    /// The columns that are shown, from left to right.
    std::vector<int> shown() const;

Q_SIGNALS:
    /// The user wants to choose an item.
    void itemWanted();

private:
    void fillMenu();
    void addToggle(int column);
    void remove(int column);
    void reset();
    void setWanted(ElementColumn column, bool wanted);
    void restore();
    void save();
    QString keyOf(int column) const;
    void arrangeAnew();

    QTableView* view_;
    ElementTableModel* model_;
    QMenu* menu_;
    bool wanted_[ElementColumnCount];  ///< Of the index's columns; that of rooms may be hidden all the same.
    bool restored_ = false;
    QTimer saver_;
};

}  // namespace desktop
