#include "desktop/plan/PlanView.hpp"

#include "desktop/QtText.hpp"
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
constexpr double ZoomStep = 1.25;
constexpr double HitPixels = 4;
/// How long drawing may hold up other events. What is through in one go shows at once, as nearly every plan is.
constexpr qint64 SliceMs = 12;
/// While footprints come in, the plan is drawn anew this often.
constexpr int GrowMs = 300;

double distanceToLine(const QPointF& p, const QPointF& a, const QPointF& b) {
    const QPointF along = b - a;
    const double squared = QPointF::dotProduct(along, along);
    const double t = squared > 0 ? std::clamp(QPointF::dotProduct(p - a, along) / squared, 0.0, 1.0) : 0.0;
    const QPointF away = p - (a + along * t);
    return std::hypot(away.x(), away.y());
}

bool touches(const Footprint& footprint, const QPointF& point, double tolerance) {
    if (!footprint.box.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(point)) return false;
    bool inside = false;
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
        if (geometry_->complete(storeys_)) {
            takeGrowth();
        } else if (!grow_.isActive()) {
            grow_.start();
        }
    });
    connect(geometry_, &PlanGeometry::clearing, this, [this] {
        building_.clear();
        marked_.clear();
        Q_EMIT shownChanged();
    });
}

void PlanView::setStoreys(const std::vector<std::uint32_t>& storeys) {
    if (storeys == storeys_ && fitted_) fit();
    storeys_ = storeys;
    geometry_->request(storeys_);
    if (fitted_) fit();
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
    if (element) bringIntoSight(*element);
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
    for (const std::uint32_t number : storeys_)
        for (const Footprint& footprint : geometry_->storey(number)) shown.push_back(&footprint);
    return shown;
}

bool PlanView::prompting() const {
    return !prompt_->isHidden();
}

/// What a fitted plan shows: the building, without the ground around it.
QRectF PlanView::extent() const {
    QRectF inner, all;
    const auto add = [](QRectF& sum, const QRectF& box) { sum = sum.isNull() ? box : sum.united(box); };
    for (const std::uint32_t number : storeys_) {
        for (const Footprint& footprint : geometry_->storey(number)) {
            // United with another box, one without extent would be passed over.
            const QRectF box = footprint.box.adjusted(0, 0, 1e-6, 1e-6);
            add(all, box);
            if (footprint.layer != PlanLayer::Ground && footprint.rings.front().size() > 1) add(inner, box);
        }
    }
    return inner.isNull() ? all : inner;
}

void PlanView::fit() {
    fitted_ = true;
    viewport_.size = size();
    const QRectF box = extent();
    if (!box.isNull()) viewport_.fit(box, FitMargin);
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
    bool bestMarked = false;
    for (const std::uint32_t number : storeys_) {
        for (const Footprint& footprint : geometry_->storey(number)) {
            if (!touches(footprint, point, tolerance)) continue;
            const bool isMarked = preferMarked && marks_ && marks_->of(footprint.element) != Mark::None;
            const bool better = !best || (isMarked != bestMarked ? isMarked : footprint.area < best->area);
            if (!better) continue;
            best = &footprint;
            bestMarked = isMarked;
        }
    }
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
    redraw();
}

void PlanView::redraw() {
    startBuilding();
    startMarks();
    Q_EMIT shownChanged();
}

void PlanView::startBuilding() {
    std::vector<PlanDrawing::Item> items;
    for (const std::uint32_t number : storeys_) {
        for (const Footprint& footprint : geometry_->storey(number)) {
            if (inSight(footprint, viewport_)) items.push_back({&footprint, Mark::None});
        }
    }
    building_.start(viewport_, devicePixelRatioF(), palette(), palette().color(QPalette::Base), std::move(items));
    drawSome();
}

/// Over the building, and drawn without it when a tick changes: the most urgent on top, small ones on big ones.
void PlanView::startMarks() {
    std::vector<PlanDrawing::Item> items;
    for (const std::uint32_t number : marks_ ? storeys_ : std::vector<std::uint32_t>()) {
        for (const Footprint& footprint : geometry_->storey(number)) {
            const Mark mark = marks_->of(footprint.element);
            if (mark != Mark::None && inSight(footprint, viewport_)) items.push_back({&footprint, mark});
        }
    }
    std::sort(items.begin(), items.end(), [](const PlanDrawing::Item& a, const PlanDrawing::Item& b) {
        if (a.mark != b.mark) return a.mark < b.mark;
        if (a.footprint->area != b.footprint->area) return a.footprint->area > b.footprint->area;
        return a.footprint->element < b.footprint->element;
    });
    marked_.start(viewport_, devicePixelRatioF(), palette(), Qt::transparent, std::move(items));
    drawSome();
}

void PlanView::drawSome() {
    const bool done = building_.draw(SliceMs) && marked_.draw(SliceMs);
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
    const Footprint* footprint = selected_ ? geometry_->find(*selected_) : nullptr;
    if (footprint && inSight(*footprint, viewport_)) plan.drawSelection(*footprint);
    if (marks_) plan.drawLegend(*marks_);
    if (!storeys_.empty() && !geometry_->complete(storeys_)) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignLeft | Qt::AlignBottom, tr("Reading the geometry…"));
    }
}

void PlanView::resizeEvent(QResizeEvent*) {
    viewport_.size = size();
    placePrompt();
    if (fitted_) fit();
    redraw();
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
    QString text = index->type(*element) + u'\n' + guidText(index->guid(*element));
    const Mark mark = marks_ ? marks_->of(*element) : Mark::None;
    if (mark != Mark::None) text += u'\n' + markText(mark);
    return text;
}

bool PlanView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), asPlainToolTip(toolTipAt(help->pos())), this);
    return true;
}

}  // namespace desktop
