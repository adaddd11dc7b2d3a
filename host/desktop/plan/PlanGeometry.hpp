#pragma once

#include "desktop/elements/ElementIndex.hpp"
#include "desktop/plan/PlanLabels.hpp"
#include "desktop/plan/PlanLayers.hpp"

#include <QObject>
#include <QPolygonF>
#include <QRectF>
#include <QTimer>
#include <deque>
#include <unordered_map>

namespace desktop {

/// What a plan shows of an element, in the model's coordinates.
struct Footprint {
    model::Element element = 0;
    model::PlanKind kind = model::PlanKind::Object;
    bool cut = false;        ///< Part of the structure that is cut where the plan is: dark.
    QList<QPolygonF> rings;  ///< The outline with its holes; one point where only the place is known.
    QList<QPolygonF> lines;  ///< What is drawn over it, open.
    QRectF box;              ///< Of both.
    double area = 0;
};

/// The footprints of the model's elements by storey. They are read from the model piece by piece between other events,
/// and only for the storeys and layers that somebody looks at.
class PlanGeometry : public QObject {
    Q_OBJECT

public:
    explicit PlanGeometry(QObject* parent = nullptr);

    /// Both are the caller's and stay until the next call; null for no model.
    void setSource(const model::Model* model, const ElementIndex* index);
    /// Shows these storeys (positions in ElementIndex::storeys) with these layers, and starts to read them. Terrain and
    /// grids that stand in no storey belong to each.
    void request(const std::vector<std::uint32_t>& storeys, const PlanLayers& layers);
    /// Whether all that is to be shown has been read.
    bool complete() const;
    /// How many of the elements read so far stand nowhere that can be followed.
    std::size_t unplaced() const;
    /// Reads the rest of it now.
    void finish();

    /// What of it has been read so far, in the order to draw. A footprint stays where it is until the source changes.
    template <class Visit>
    void forEach(const Visit& visit) const {
        for (const Part* part : shown_)
            for (const Footprint& footprint : part->footprints) visit(footprint);
    }
    /// Null for what has not been read, and what is not shown.
    const Footprint* find(model::Element element) const;
    /// What is written on a footprint; null for nothing. Stays where it is until the source changes.
    const PlanLabel* label(model::Element element) const;
    /// Takes the labels' texts from the model anew, after an edit.
    void refreshLabels();

    /// Rooms that lie one upon the other cannot be written on.
    bool severalStoreys() const { return severalStoreys_; }
    const model::Model* model() const { return model_; }
    const ElementIndex* index() const { return index_; }
    /// Nothing where the file does not say.
    std::optional<double> metresPerUnit() const { return metresPerUnit_; }
    std::optional<QPointF> trueNorth() const { return trueNorth_; }

Q_SIGNALS:
    void grown();
    /// The footprints are about to go.
    void clearing();

private:
    /// The elements of one kind on one storey.
    struct Part {
        std::uint32_t storey = 0;
        model::PlanKind kind = model::PlanKind::Object;
        std::vector<model::Element> elements;
        // A deque: drawings under way hold pointers to footprints while more of them come in.
        std::deque<Footprint> footprints;
        std::size_t done = 0, unplaced = 0;
        bool shown = false;
        bool complete() const { return done == elements.size(); }
    };

    Part* part(std::uint32_t storey, model::PlanKind kind);
    void sortElements();
    void readSome();
    void readNext(Part& part);
    void addLabel(const Footprint& footprint);
    bool isCut(const Part& part, const model::PlanOutline& outline) const;

    const model::Model* model_ = nullptr;
    const ElementIndex* index_ = nullptr;
    std::deque<Part> parts_;
    std::vector<Part*> partAt_;  ///< By storey and kind; null where there are no such elements.
    std::vector<Part*> shown_;
    std::vector<std::pair<Part*, const Footprint*>> byElement_;
    std::unordered_map<model::Element, PlanLabel> labels_;
    std::optional<double> metresPerUnit_;
    std::optional<QPointF> trueNorth_;
    bool severalStoreys_ = false;
    QTimer timer_;
};

}  // namespace desktop
