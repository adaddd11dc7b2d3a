#pragma once

#include "desktop/plan/PlanDrawing.hpp"
#include "desktop/plan/PlanGeometry.hpp"
#include "desktop/plan/PlanMarks.hpp"
#include "desktop/plan/PlanSheet.hpp"
#include "desktop/plan/PlanViewport.hpp"

#include <QWidget>
#include <functional>

class QLabel;

namespace desktop {

/// The plan itself: draws storeys' footprints with their marks, zooms (wheel, + and -), pans (drag, arrows), and tells
/// which element was clicked.
class PlanView : public QWidget {
    Q_OBJECT

public:
    explicit PlanView(PlanGeometry* geometry, QWidget* parent = nullptr);

    void setStoreys(const std::vector<std::uint32_t>& storeys);
    void setLayers(const PlanLayers& layers);
    const PlanLayers& layers() const { return layers_; }
    void setMarks(const PlanMarks* marks);
    /// What is said of an element at the end of its tool tip, a line each.
    void setRemarks(std::function<QStringList(model::Element)> remarks) { remarks_ = std::move(remarks); }
    /// Names of rooms may have changed.
    void refreshLabels();
    /// The element drawn with the selection's frame; brought into sight where it is not.
    void setSelected(std::optional<model::Element> element);
    std::optional<model::Element> selected() const { return selected_; }
    /// Others that are selected with it; drawn alike, but for more than MostSelected.
    void setSelectedBeside(std::vector<model::Element> elements);
    static constexpr std::size_t MostSelected = 1000;
    /// Brings the element's footprint into sight where it is not.
    void bringIntoSight(model::Element element);
    void fit();
    void zoomBy(double factor);

    /// Until the next call with an empty prompt, a click asks for a point instead of selecting.
    void setPrompt(const QString& text);

    /// The smallest footprint at a point of the model, marked ones first if `preferMarked`.
    std::optional<model::Element> hit(const QPointF& point, bool preferMarked) const;
    const PlanViewport& viewport() const { return viewport_; }
    const PlanGeometry& geometry() const { return *geometry_; }
    /// What there is to see, read so far: in sight or not. Valid until shownChanged.
    std::vector<const Footprint*> footprints() const;
    /// How the element's row in an open review stands.
    Mark mark(model::Element element) const { return marks_ ? marks_->of(element) : Mark::None; }
    /// Whether a point is asked for.
    bool prompting() const;
    /// Whether all that it is to show has been read.
    bool complete() const { return !storeys_.empty() && geometry_->complete(); }
    /// Whether what is in sight has been drawn.
    bool drawn() const { return !drawer_.isActive(); }
    QString toolTipAt(const QPointF& pixel) const;
    /// Reads the rest of what it is to show now.
    void finish() { geometry_->finish(); }
    /// What is in sight of it, to be put on paper.
    PlanSheet sheet(const QString& storey, const QString& file) const;

    QSize sizeHint() const override { return {480, 360}; }
    QSize minimumSizeHint() const override { return {120, 48}; }

Q_SIGNALS:
    void elementClicked(model::Element element);
    void pointClicked(QPointF point);
    /// What there is to see, or where, is no longer what it was.
    void shownChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void click(const QPointF& pixel);
    /// The plan has been zoomed or panned.
    void moved();
    void takeGrowth();
    /// What is drawn has changed.
    void redraw();
    void startDrawing();
    void startMarks();
    void drawSome();
    PlanDrawing::Paper paper(const QColor& color) const;
    QRectF extent() const;
    void placePrompt();
    void drawFrame(QPainter& painter) const;

    PlanGeometry* geometry_;
    std::vector<std::uint32_t> storeys_;
    PlanLayers layers_;
    const PlanMarks* marks_ = nullptr;
    std::function<QStringList(model::Element)> remarks_;
    std::optional<model::Element> selected_;
    std::vector<model::Element> selectedBeside_;
    PlanViewport viewport_;
    bool fitted_ = true;  ///< Nobody has zoomed or panned: the whole storey stays in sight as it grows.

    PlanDrawing building_, marked_;
    QTimer drawer_;           ///< Runs while one of them is being drawn.
    bool outOfDate_ = false;  ///< The plan was moved while it was drawn: once that is through, it is drawn again.
    QTimer grow_;             ///< Runs while more footprints come in.

    QPointF pressedAt_, draggedFrom_;
    bool pressed_ = false, dragging_ = false;
    QLabel* prompt_;
};

}  // namespace desktop
