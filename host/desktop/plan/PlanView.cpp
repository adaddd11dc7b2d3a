#include "desktop/plan/PlanView.hpp"

#include "desktop/QtText.hpp"
#include "desktop/plan/PlanFrame.hpp"
#include "desktop/plan/PlanPainter.hpp"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <cmath>

namespace desktop {

namespace {

constexpr double FitMargin = 16;
/// What it needs beside the margin.
constexpr double ScaleBarHeight = 20;
constexpr double ZoomStep = 1.25;
constexpr double HitPixels = 4;
/// How long drawing may hold up other events. What is through in one go shows at once, as nearly every plan is.
constexpr qint64 SliceMs = 8;
/// While footprints come in, the plan is drawn anew this often.
constexpr int GrowMs = 300;

double distanceToLine(const QPointF& p, const QPointF& a, const QPointF& b) {
    const QPointF along = b - a;
    const double squared = QPointF::dotProduct(along, along);
    const double t = squared > 0 ? std::clamp(QPointF::dotProduct(p - a, along) / squared, 0.0, 1.0) : 0.0;
    const QPointF away = p - (a + along * t);
    return std::hypot(away.x(), away.y());
}

bool touchesLine(const QPolygonF& line, const QPointF& point, double tolerance) {
    for (qsizetype i = 0; i + 1 < line.size(); ++i) {
        if (distanceToLine(point, line[i], line[i + 1]) <= tolerance) return true;
    }
    return false;
}

bool touches(const Footprint& footprint, const QPointF& point, double tolerance) {
    if (!footprint.box.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(point)) return false;
    bool inside = false;
    // What a door's leaf passes over is the room's; its own lines count where there is nothing else.
    if (footprint.rings.isEmpty()) {
        return std::any_of(footprint.lines.begin(), footprint.lines.end(),
                           [&](const QPolygonF& line) { return touchesLine(line, point, tolerance); });
    }
    for (const QPolygonF& ring : footprint.rings) {
        if (ring.size() > 2 && ring.containsPoint(point, Qt::OddEvenFill)) inside = !inside;
        for (qsizetype i = 0; i < ring.size(); ++i) {
            if (distanceToLine(point, ring[i], ring[(i + 1) % ring.size()]) <= tolerance) return true;
        }
    }
    return inside;
}

}  // namespace

PlanView::PlanView(PlanGeometry* geometry, QWidget* parent)
    : QWidget(parent), geometry_(geometry), prompt_(new QLabel(this)) {
    setObjectName(QStringLiteral("plan"));
    setAccessibleName(tr("Plan of the model"));
    setFocusPolicy(Qt::StrongFocus);
    setBackgroundRole(QPalette::Base);
    setAttribute(Qt::WA_OpaquePaintEvent);
    prompt_->setObjectName(QStringLiteral("planPrompt"));
    prompt_->setTextFormat(Qt::PlainText);
    prompt_->setMargin(8);
    prompt_->setAutoFillBackground(true);
    prompt_->setBackgroundRole(QPalette::Highlight);
    prompt_->setForegroundRole(QPalette::HighlightedText);
    prompt_->setAttribute(Qt::WA_TransparentForMouseEvents);
    prompt_->hide();
    drawer_.setInterval(0);
    connect(&drawer_, &QTimer::timeout, this, &PlanView::drawSome);
    grow_.setSingleShot(true);
    grow_.setInterval(GrowMs);
    connect(&grow_, &QTimer::timeout, this, &PlanView::takeGrowth);
    connect(geometry_, &PlanGeometry::grown, this, [this] {
        if (geometry_->complete()) {
            takeGrowth();
        } else if (!grow_.isActive()) {
            grow_.start();
        }
    });
    connect(geometry_, &PlanGeometry::clearing, this, [this] {
        building_.clear();
        marked_.clear();
        Q_EMIT shownChanged();
        drawer_.stop();
    });
}

void PlanView::setStoreys(const std::vector<std::uint32_t>& storeys) {
    storeys_ = storeys;
    geometry_->request(storeys_, layers_);
    takeGrowth();
}

void PlanView::setLayers(const PlanLayers& layers) {
    layers_ = layers;
    geometry_->request(storeys_, layers_);
    redraw();
}

void PlanView::refreshLabels() {
    geometry_->refreshLabels();
    redraw();
}

void PlanView::setMarks(const PlanMarks* marks) {
    marks_ = marks;
    QStringList counts;
    for (const Mark mark : MarksByUrgency) {
        if (marks_ && marks_->rowCount(mark)) {
            counts += QStringLiteral("%1 %2").arg(marks_->rowCount(mark)).arg(markText(mark));
        }
    }
    setAccessibleDescription(counts.join(QStringLiteral(", ")));
    startMarks();
}

void PlanView::setSelected(std::optional<model::Element> element) {
    selected_ = element;
    if (element) {
        bringIntoSight(*element);
    } else {
        selectedBeside_.clear();
    }
    update();
}

void PlanView::setSelectedBeside(std::vector<model::Element> elements) {
    selectedBeside_ = std::move(elements);
    if (selectedBeside_.size() > MostSelected) selectedBeside_.resize(MostSelected);
    update();
}

void PlanView::bringIntoSight(model::Element element) {
    const Footprint* footprint = geometry_->find(element);
    if (!footprint || viewport_.visible().contains(footprint->box.center())) return;
    viewport_.center = footprint->box.center();
    fitted_ = false;
    redraw();
}

std::vector<const Footprint*> PlanView::footprints() const {
    std::vector<const Footprint*> shown;
    geometry_->forEach([&](const Footprint& footprint) { shown.push_back(&footprint); });
    return shown;
}

bool PlanView::prompting() const {
    return !prompt_->isHidden();
}

/// What a fitted plan shows: the building, without the ground around it and the grid's ends.
QRectF PlanView::extent() const {
    QRectF inner, all;
    const auto add = [](QRectF& sum, const QRectF& box) { sum = sum.isNull() ? box : sum.united(box); };
    geometry_->forEach([&](const Footprint& footprint) {
        // United with another box, one without extent would be passed over.
        const QRectF box = footprint.box.adjusted(0, 0, 1e-6, 1e-6);
        add(all, box);
        const bool around = footprint.kind == model::PlanKind::Terrain || footprint.kind == model::PlanKind::Grid ||
                            footprint.kind == model::PlanKind::Annotation;
        if (!around && !footprint.rings.isEmpty() && footprint.rings.front().size() > 1) add(inner, box);
    });
    return inner.isNull() ? all : inner;
}

PlanSheet PlanView::sheet(const QString& storey, const QString& file) const {
    const QRectF all = extent();
    const QRectF seen = fitted_ ? all : viewport_.visible().intersected(all);
    return {geometry_, marks_, seen.isEmpty() ? viewport_.visible() : seen, storey, file};
}

void PlanView::fit() {
    fitted_ = true;
    viewport_.size = size();
    const QRectF box = extent();
    if (!box.isNull()) {
        // Above the scale bar, where there is room for both.
        const double below = geometry_->metresPerUnit() && height() > 8 * ScaleBarHeight ? ScaleBarHeight : 0;
        viewport_.size -= QSizeF(0, below);
        viewport_.fit(box, FitMargin);
        viewport_.size = size();
        viewport_.center.ry() -= below / 2 / viewport_.scale;
    }
    redraw();
}

void PlanView::zoomBy(double factor) {
    viewport_.zoom(factor, rect().center());
    moved();
}

void PlanView::setPrompt(const QString& text) {
    prompt_->setText(text);
    prompt_->setVisible(!text.isEmpty());
    placePrompt();
    if (text.isEmpty()) {
        unsetCursor();
    } else {
        setCursor(Qt::CrossCursor);
    }
}

void PlanView::placePrompt() {
    const QSize wanted = prompt_->sizeHint().boundedTo({width() - 16, height() - 16});
    prompt_->setGeometry((width() - wanted.width()) / 2, 8, wanted.width(), wanted.height());
}

std::optional<model::Element> PlanView::hit(const QPointF& point, bool preferMarked) const {
    const double tolerance = HitPixels / viewport_.scale;
    const Footprint* best = nullptr;
    bool bestMarked = false, bestLine = false;
    geometry_->forEach([&](const Footprint& footprint) {
        if (!touches(footprint, point, tolerance)) return;
        const bool isMarked = preferMarked && marks_ && marks_->of(footprint.element) != Mark::None;
        // A line has no area, and must not be in the way of what it passes over.
        const bool isLine = footprint.rings.isEmpty();
        const bool better = !best || (isMarked != bestMarked ? isMarked
                                      : isLine != bestLine   ? bestLine
                                                             : footprint.area < best->area);
        if (!better) return;
        best = &footprint;
        bestMarked = isMarked;
        bestLine = isLine;
    });
    if (!best) return std::nullopt;
    return best->element;
}

void PlanView::takeGrowth() {
    grow_.stop();
    if (fitted_) {
        fit();
    } else {
        redraw();
    }
}

void PlanView::moved() {
    fitted_ = false;
    // Begun anew with each move, a picture of a big storey would not be finished before the hand rests.
    if (building_.running() && building_.hasPicture()) {
        outOfDate_ = true;
        update();
        Q_EMIT shownChanged();
    } else {
        redraw();
    }
}

PlanDrawing::Paper PlanView::paper(const QColor& color) const {
    return {devicePixelRatioF(), palette(), font(), color};
}

void PlanView::redraw() {
    startDrawing();
    drawSome();
    Q_EMIT shownChanged();
}

void PlanView::startDrawing() {
    outOfDate_ = false;
    building_.start(viewport_, paper(palette().color(QPalette::Base)), buildingItems(*geometry_, viewport_));
    marked_.start(viewport_, paper(Qt::transparent), markItems(*geometry_, marks_, viewport_));
}

/// Drawn without the building when a tick changes.
void PlanView::startMarks() {
    marked_.start(viewport_, paper(Qt::transparent), markItems(*geometry_, marks_, viewport_));
    drawSome();
}

void PlanView::drawSome() {
    bool done = building_.draw(SliceMs) && marked_.draw(SliceMs);
    if (done && outOfDate_) {
        startDrawing();
        done = false;
    }
    if (done) {
        drawer_.stop();
    } else if (!drawer_.isActive()) {
        drawer_.start();
    }
    update();
}

void PlanView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    building_.paint(painter, viewport_);
    marked_.paint(painter, viewport_);
    PlanPainter plan(painter, viewport_, palette());
    const auto drawSelected = [&](model::Element element) {
        const Footprint* footprint = geometry_->find(element);
        if (footprint && inSight(*footprint, viewport_)) plan.drawSelection(*footprint);
    };
    for (const model::Element element : selectedBeside_) drawSelected(element);
    if (selected_) drawSelected(*selected_);
    drawFrame(painter);
}

void PlanView::drawFrame(QPainter& painter) const {
    if (storeys_.empty()) return;
    if (geometry_->metresPerUnit()) drawScaleBar(painter, rect(), viewport_, palette(), *geometry_->metresPerUnit());
    if (geometry_->trueNorth()) drawNorthArrow(painter, rect(), palette(), *geometry_->trueNorth());
    if (marks_) drawLegend(painter, rect(), palette(), *marks_);
    if (geometry_->complete()) return;
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignLeft | Qt::AlignTop, tr("Reading the geometry…"));
}

void PlanView::resizeEvent(QResizeEvent*) {
    viewport_.size = size();
    placePrompt();
    takeGrowth();
}

void PlanView::wheelEvent(QWheelEvent* event) {
    viewport_.zoom(std::pow(ZoomStep, event->angleDelta().y() / 120.0), event->position());
    moved();
    event->accept();
}

void PlanView::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    dragging_ = false;
    pressedAt_ = draggedFrom_ = event->position();
}

void PlanView::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed_) return;
    const QPointF way = event->position() - pressedAt_;
    if (!dragging_ && way.manhattanLength() < QApplication::startDragDistance()) return;
    dragging_ = true;
    setCursor(Qt::ClosedHandCursor);
    viewport_.pan(event->position() - draggedFrom_);
    draggedFrom_ = event->position();
    moved();
}

void PlanView::mouseReleaseEvent(QMouseEvent* event) {
    if (dragging_) setPrompt(prompt_->text());
    const bool isClick = pressed_ && !dragging_ && event->button() == Qt::LeftButton;
    pressed_ = dragging_ = false;
    if (isClick) click(event->position());
}

void PlanView::click(const QPointF& pixel) {
    const QPointF point = viewport_.toModel(pixel);
    if (!prompt_->isHidden()) {
        Q_EMIT pointClicked(point);
    } else if (const auto element = hit(point, true)) {
        Q_EMIT elementClicked(*element);
    }
}

void PlanView::keyPressEvent(QKeyEvent* event) {
    constexpr double Step = 40;
    switch (event->key()) {
        case Qt::Key_Plus:
            zoomBy(ZoomStep);
            return;
        case Qt::Key_Minus:
            zoomBy(1 / ZoomStep);
            return;
        case Qt::Key_0:
        case Qt::Key_Home:
            fit();
            return;
        case Qt::Key_Left:
            viewport_.pan({Step, 0});
            break;
        case Qt::Key_Right:
            viewport_.pan({-Step, 0});
            break;
        case Qt::Key_Up:
            viewport_.pan({0, Step});
            break;
        case Qt::Key_Down:
            viewport_.pan({0, -Step});
            break;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    moved();
}

void PlanView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) redraw();
}

QString PlanView::toolTipAt(const QPointF& pixel) const {
    const auto element = hit(viewport_.toModel(pixel), true);
    const ElementIndex* index = geometry_->index();
    if (!element || !index) return {};
    QStringList lines;
    const PlanLabel* label = geometry_->label(*element);
    lines += label && label->tags.isEmpty()
                 ? QStringList{label->number, label->name, label->area}.join(u' ').simplified()
                 : toQString(geometry_->model()->name(*element));
    lines += QStringLiteral("%1 (%2)").arg(index->type(*element), index->ifcClass(*element));
    lines += guidText(index->guid(*element));
    const Mark mark = marks_ ? marks_->of(*element) : Mark::None;
    const QStringList remarks = remarks_ && mark != Mark::None ? remarks_(*element) : QStringList();
    if (mark != Mark::None && remarks.isEmpty()) lines += markText(mark);
    lines += remarks;
    lines.removeAll(QString());
    return lines.join(u'\n');
}

bool PlanView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), asPlainToolTip(toolTipAt(help->pos())), this);
    return true;
}

}  // namespace desktop
