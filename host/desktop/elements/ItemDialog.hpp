#pragma once

#include "desktop/elements/ItemValues.hpp"
#include "updatefile/ItemCensus.hpp"

#include <QDialog>
#include <QTimer>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

/// The items of a model, to choose one from: attributes, properties with their sets, classifications. The elements are
/// counted a few milliseconds at a time while the dialog is open; the list grows meanwhile.
class ItemDialog : public QDialog {
    Q_OBJECT

public:
    /// The model stays open as long as the dialog.
    explicit ItemDialog(const model::Model& model, QWidget* parent);

    /// Of the chosen row.
    std::optional<Item> item() const;
    bool complete() const { return next_ >= model_.elementCount(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static QTreeWidgetItem* rowOf(const updatefile::ItemRecord& record);
    void countSome();
    void fill();
    void showMatching();

    const model::Model& model_;
    updatefile::ItemCensus census_;
    model::Element next_ = 0, nextFill_;
    QTimer counter_;
    QLineEdit* filter_;
    QTreeWidget* items_;
    QLabel* progress_;
    QPushButton* add_;
};

}  // namespace desktop
