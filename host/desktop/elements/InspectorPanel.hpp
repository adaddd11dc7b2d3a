#pragma once

#include "desktop/elements/CommonValues.hpp"

#include <QHash>
#include <QSet>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

/// The selected element's attributes, properties by set, and classification references.
class InspectorPanel : public QWidget {
    Q_OBJECT

public:
    explicit InspectorPanel(QWidget* parent = nullptr);

    /// Shows an element, nothing, or what several have in common. Groups that the user has closed stay closed from one
    /// to the next.
    void show(const model::Model* model, const std::vector<model::Element>& elements);

    QTreeWidget* tree() const { return view_; }
    /// As the model has it.
    QString storedValue(const QTreeWidgetItem& row) const;
    /// Lets the user write over the value of a row.
    void editValue(const QTreeWidgetItem& row);
    /// Stands below the data.
    void setFooter(QWidget* footer);
    /// What has been proposed for an item, shown beside what the model holds.
    using Proposals = std::function<std::optional<QString>(model::Element element, const std::string& item)>;
    void setProposals(Proposals proposals) { proposals_ = std::move(proposals); }

Q_SIGNALS:
    /// The user has written another value over that of the elements that have the item.
    void valueProposed(const desktop::Item& item, const QString& value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keepCurrent(const std::function<void()>& refill);
    void fill(const model::Model* model);
    QTreeWidgetItem* group(const QString& title);
    void addIdentity(const model::Model& model, model::Element element);
    void addAttributes(const model::Model& model, model::Element element);
    void addProperties(const model::Model& model, model::Element element);
    void addClassifications(const model::Model& model, model::Element element);
    void copySelection();
    void showCommon(const model::Model& model);
    void addCommon(const CommonValue& common);
    QString commonText(const CommonValue& common) const;
    void makeEditable(QTreeWidgetItem* row, const Item& item);
    void showProposal(QTreeWidgetItem* row, const Item& item);

    QLabel* heading_;
    QTreeWidget* view_;
    QSet<QString> closedGroups_;
    Proposals proposals_;
    QHash<QString, QTreeWidgetItem*> groups_;  ///< By their titles.
    std::vector<model::Element> elements_;
};

}  // namespace desktop
