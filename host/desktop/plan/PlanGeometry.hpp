#pragma once

#include "desktop/elements/ElementIndex.hpp"

#include <QObject>
#include <QPolygonF>
#include <QRectF>
#include <QTimer>
#include <deque>

namespace desktop {

/// What is drawn under what: areas first, then what stands on them.
enum class PlanLayer : std::uint8_t { Ground, Zone, Floor, Object, Structure, Filling };

/// An element's outline seen from above, in the model's coordinates.
struct Footprint {
    model::Element element = 0;
    PlanLayer layer = PlanLayer::Object;
    QList<QPolygonF> rings;  ///< The outline with its holes; one point where only the place is known.
    QRectF box;
    double area = 0;
};

/// The footprints of the model's elements by storey. They are read from the model piece by piece between other events,
/// and only for the storeys that somebody looks at.
class PlanGeometry : public QObject {
    Q_OBJECT

public:
    explicit PlanGeometry(QObject* parent = nullptr);

    /// Both are the caller's and stay until the next call; null for no model.
    void setSource(const model::Model* model, const ElementIndex* index);
    /// Starts to read these storeys (positions in ElementIndex::storeys) before all others.
    void request(const std::vector<std::uint32_t>& storeys);
    bool complete(const std::vector<std::uint32_t>& storeys) const;

    /// What has been read so far, in the order to draw. A footprint stays where it is until the source changes.
    const std::deque<Footprint>& storey(std::uint32_t number) const { return storeys_[number].footprints; }
    const Footprint* find(model::Element element) const;
    const model::Model* model() const { return model_; }
    const ElementIndex* index() const { return index_; }

Q_SIGNALS:
    void grown();
    /// The footprints are about to go.
    void clearing();

private:
    struct Storey {
        std::vector<model::Element> elements;
        std::deque<Footprint> footprints;
        std::size_t done = 0;
        bool complete() const { return done == elements.size(); }
    };
    void readSome();
    void readNext(Storey& storey);

    const model::Model* model_ = nullptr;
    const ElementIndex* index_ = nullptr;
    std::vector<Storey> storeys_;
    std::vector<const Footprint*> byElement_;
    std::vector<std::uint32_t> wanted_;
    QTimer timer_;
};

PlanLayer planLayer(std::int32_t typeId);

}  // namespace desktop
