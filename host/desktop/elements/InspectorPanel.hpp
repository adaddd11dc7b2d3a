#pragma once

#include "desktop/elements/ElementIndex.hpp"

#include <QSet>
#include <QWidget>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

/// The selected element's attributes, properties by set, and classification references.
class InspectorPanel : public QWidget {
    Q_OBJECT

public:
    explicit InspectorPanel(QWidget* parent = nullptr);

    /// Shows an element, or nothing. Groups that the user has closed stay closed from one element to the next.
    void show(const model::Model* model, std::optional<model::Element> element);

    QTreeWidget* tree() const { return view_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTreeWidgetItem* group(const QString& title);
    void addIdentity(const model::Model& model, model::Element element);
    void addAttributes(const model::Model& model, model::Element element);
    void addProperties(const model::Model& model, model::Element element);
    void addClassifications(const model::Model& model, model::Element element);
    void copySelection();

    QLabel* heading_;
    QTreeWidget* view_;
    QSet<QString> closedGroups_;
};

/// A property's value as a person reads it.
QString valueText(const model::Property& property);

}  // namespace desktop
