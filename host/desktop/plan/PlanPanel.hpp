#pragma once

#include "desktop/plan/PlanView.hpp"
#include "services/Host.hpp"

#include <QWidget>

class QComboBox;
class QToolButton;

namespace desktop {

class ElidedLabel;

/// The plan with its choices of storeys and layers and its zoom buttons.
class PlanPanel : public QWidget {
    Q_OBJECT

public:
    explicit PlanPanel(QWidget* parent = nullptr);

    void setSource(const model::Model* model, const ElementIndex* index);
    /// The marks are the caller's and stay until the next call; null for none. With `choose` the plan goes to the
    /// storey with most of them if the one in sight has none.
    void setMarks(const PlanMarks* marks, bool choose);
    /// Texts of the model may have changed.
    void refresh();
    /// Selects an element; a plan of another storey changes to the element's. Site, building and what else stands in no
    /// storey leave the plan as it is.
    void showElement(std::optional<model::Element> element);

    /// Lets the user click a point. @return nothing: cancelled.
    std::optional<host::PickedPoint> pickPoint(const QString& prompt);
    bool picking() const { return picking_; }
    void cancelPicking();

    PlanView* view() const { return view_; }
    QComboBox* storeyChoice() const { return choice_; }
    QToolButton* layersButton() const { return layers_; }
    /// The entry chosen, without heights and counts.
    QString storeyName() const;

Q_SIGNALS:
    void elementClicked(model::Element element);
    void pickingEnded();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillLayers();
    void fillChoice();
    std::uint32_t firstStorey() const;
    void labelChoice();
    QString nameOf(int storey) const;
    void showChosen();
    void showUnplaced();
    void chooseStorey(std::uint32_t storey);
    std::optional<std::uint32_t> chosenStorey() const;
    std::vector<std::size_t> markedPerStorey() const;
    double heightOfPlan() const;

    const ElementIndex* elements_ = nullptr;
    const PlanMarks* marks_ = nullptr;
    PlanGeometry* geometry_;
    PlanView* view_;
    QComboBox* choice_;
    ElidedLabel* unplaced_;
    QToolButton* layers_;
    bool picking_ = false;
};

}  // namespace desktop
