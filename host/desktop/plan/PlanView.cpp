#include "desktop/plan/PlanView.hpp"

#include "desktop/Text.hpp"
#include "desktop/plan/PlanColors.hpp"
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

constexpr double fitMargin = 16;
constexpr double zoomStep = 1.25;
constexpr double hitPixels = 4;
/// How long drawing may hold up other events. What is through in one go shows at once, as nearly every plan is.
constexpr qint64 sliceMs = 12;
/// While footprints come in, the plan is drawn anew this often.
constexpr int growMs = 300;

double distanceToLine(const QPointF& p, const QPointF& a, const QPointF& b) {
    const QPointF along = b - a;
    const double squared = QPointF::dotProduct(along, along);
    const double t = squared > 0 ? std::clamp(QPointF::dotProduct(p - a, along) / squared, 0.0, 1.0) : 0.0;
    const QPointF away = p - (a + along * t);
    return std::hypot(away.x(), away.y());
}

bool touches(const Footprint& footprint, const QPointF& point, double tolerance) {
    if (!footprint.box.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(point)) return false;
    const QPolygonF& outline = footprint.outline;
    if (outline.size() > 2 && outline.containsPoint(point, Qt::OddEvenFill)) return true;
    for (qsizetype i = 0; i < outline.size(); ++i) {
        if (distanceToLine(point, outline[i], outline[(i + 1) % outline.size()]) <= tolerance) return true;
    }
    return false;
}

}  // namespace

PlanView::PlanView(PlanGeometry* source, QWidget* parent)
    : QWidget(parent), geometry(source), promptLabel(new QLabel(this)) {
    setObjectName(QStringLiteral("plan"));
    setAccessibleName(QStringLiteral("Plan of the model"));
    setFocusPolicy(Qt::StrongFocus);
    setBackgroundRole(QPalette::Base);
    setAttribute(Qt::WA_OpaquePaintEvent);
    promptLabel->setObjectName(QStringLiteral("planPrompt"));
    promptLabel->setTextFormat(Qt::PlainText);
    promptLabel->setMargin(8);
    promptLabel->setAutoFillBackground(true);
    promptLabel->setBackgroundRole(QPalette::Highlight);
    promptLabel->setForegroundRole(QPalette::HighlightedText);
    promptLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    promptLabel->hide();
    drawer.setInterval(0);
    connect(&drawer, &QTimer::timeout, this, &PlanView::drawSome);
    grow.setSingleShot(true);
    grow.setInterval(growMs);
    connect(&grow, &QTimer::timeout, this, &PlanView::takeGrowth);
    connect(geometry, &PlanGeometry::grown, this, [this] {
        if (geometry->complete(storeys)) {
            takeGrowth();
        } else if (!grow.isActive()) {
            grow.start();
        }
    });
    connect(geometry, &PlanGeometry::clearing, this, [this] {
        building.clear();
        marked.clear();
    });
}

void PlanView::setStoreys(const std::vector<std::uint32_t>& numbers) {
    if (numbers == storeys && fitted) fit();
    storeys = numbers;
    geometry->request(storeys);
    if (fitted) fit();
    redraw();
}

void PlanView::setMarks(const PlanMarks* shown) {
    marks = shown;
    QStringList counts;
    for (const Mark mark : {Mark::Error, Mark::Ticked, Mark::Open, Mark::Done, Mark::Unchanged}) {
        if (marks && marks->rowCount(mark)) {
            counts += QStringLiteral("%1 %2").arg(marks->rowCount(mark)).arg(markText(mark));
        }
    }
    setAccessibleDescription(counts.join(QStringLiteral(", ")));
    startMarks();
}

void PlanView::setSelected(std::optional<model::Element> element) {
    selected = element;
    const Footprint* footprint = element ? geometry->find(*element) : nullptr;
    if (footprint && !port.visible().contains(footprint->box.center())) {
        port.center = footprint->box.center();
        fitted = false;
        redraw();
    }
    update();
}

/// What a fitted plan shows: the building, without the ground around it.
QRectF PlanView::extent() const {
    QRectF inner, all;
    const auto add = [](QRectF& sum, const QRectF& box) { sum = sum.isNull() ? box : sum.united(box); };
    for (const std::uint32_t number : storeys) {
        for (const Footprint& footprint : geometry->storey(number)) {
            // United with another box, one without extent would be passed over.
            const QRectF box = footprint.box.adjusted(0, 0, 1e-6, 1e-6);
            add(all, box);
            if (footprint.layer != PlanLayer::Ground && footprint.outline.size() > 1) add(inner, box);
        }
    }
    return inner.isNull() ? all : inner;
}

void PlanView::fit() {
    fitted = true;
    port.size = size();
    const QRectF box = extent();
    if (!box.isNull()) port.fit(box, fitMargin);
    redraw();
}

void PlanView::zoomBy(double factor) {
    port.zoom(factor, rect().center());
    moved();
}

void PlanView::setPrompt(const QString& text) {
    promptLabel->setText(text);
    promptLabel->setVisible(!text.isEmpty());
    placePrompt();
    if (text.isEmpty()) {
        unsetCursor();
    } else {
        setCursor(Qt::CrossCursor);
    }
}

void PlanView::placePrompt() {
    const QSize wanted = promptLabel->sizeHint().boundedTo({width() - 16, height() - 16});
    promptLabel->setGeometry((width() - wanted.width()) / 2, 8, wanted.width(), wanted.height());
}

std::optional<model::Element> PlanView::hit(const QPointF& point, bool preferMarked) const {
    const double tolerance = hitPixels / port.scale;
    const Footprint* best = nullptr;
    bool bestMarked = false;
    for (const std::uint32_t number : storeys) {
        for (const Footprint& footprint : geometry->storey(number)) {
            if (!touches(footprint, point, tolerance)) continue;
            const bool isMarked = preferMarked && marks && marks->of(footprint.element) != Mark::None;
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
    grow.stop();
    if (fitted) {
        fit();
    } else {
        redraw();
    }
}

void PlanView::moved() {
    fitted = false;
    redraw();
}

void PlanView::redraw() {
    startBuilding();
    startMarks();
}

void PlanView::startBuilding() {
    std::vector<PlanDrawing::Item> items;
    for (const std::uint32_t number : storeys) {
        for (const Footprint& footprint : geometry->storey(number)) {
            if (inSight(footprint, port)) items.push_back({&footprint, Mark::None});
        }
    }
    building.start(port, devicePixelRatioF(), palette(), palette().color(QPalette::Base), std::move(items));
    drawSome();
}

/// Over the building, and drawn without it when a tick changes: the most urgent on top, small ones on big ones.
void PlanView::startMarks() {
    std::vector<PlanDrawing::Item> items;
    for (const std::uint32_t number : marks ? storeys : std::vector<std::uint32_t>()) {
        for (const Footprint& footprint : geometry->storey(number)) {
            const Mark mark = marks->of(footprint.element);
            if (mark != Mark::None && inSight(footprint, port)) items.push_back({&footprint, mark});
        }
    }
    std::sort(items.begin(), items.end(), [](const PlanDrawing::Item& a, const PlanDrawing::Item& b) {
        if (a.mark != b.mark) return a.mark < b.mark;
        if (a.footprint->area != b.footprint->area) return a.footprint->area > b.footprint->area;
        return a.footprint->element < b.footprint->element;
    });
    marked.start(port, devicePixelRatioF(), palette(), Qt::transparent, std::move(items));
    drawSome();
}

void PlanView::drawSome() {
    const bool done = building.draw(sliceMs) && marked.draw(sliceMs);
    if (done) {
        drawer.stop();
    } else if (!drawer.isActive()) {
        drawer.start();
    }
    update();
}

void PlanView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    building.paint(painter, port);
    marked.paint(painter, port);
    PlanPainter plan(painter, port, palette());
    const Footprint* footprint = selected ? geometry->find(*selected) : nullptr;
    if (footprint && inSight(*footprint, port)) plan.drawSelection(*footprint);
    if (marks) plan.drawLegend(*marks);
    if (!storeys.empty() && !geometry->complete(storeys)) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignLeft | Qt::AlignBottom,
                         QStringLiteral("Reading the geometry…"));
    }
}

void PlanView::resizeEvent(QResizeEvent*) {
    port.size = size();
    placePrompt();
    if (fitted) fit();
    redraw();
}

void PlanView::wheelEvent(QWheelEvent* event) {
    port.zoom(std::pow(zoomStep, event->angleDelta().y() / 120.0), event->position());
    moved();
    event->accept();
}

void PlanView::mousePressEvent(QMouseEvent* event) {
    pressed = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    dragging = false;
    pressedAt = draggedFrom = event->position();
}

void PlanView::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed) return;
    const QPointF way = event->position() - pressedAt;
    if (!dragging && way.manhattanLength() < QApplication::startDragDistance()) return;
    dragging = true;
    setCursor(Qt::ClosedHandCursor);
    port.pan(event->position() - draggedFrom);
    draggedFrom = event->position();
    moved();
}

void PlanView::mouseReleaseEvent(QMouseEvent* event) {
    if (dragging) setPrompt(promptLabel->text());
    const bool isClick = pressed && !dragging && event->button() == Qt::LeftButton;
    pressed = dragging = false;
    if (isClick) click(event->position());
}

void PlanView::click(const QPointF& pixel) {
    const QPointF point = port.toModel(pixel);
    if (!promptLabel->isHidden()) {
        Q_EMIT pointClicked(point);
    } else if (const auto element = hit(point, true)) {
        Q_EMIT elementClicked(*element);
    }
}

void PlanView::keyPressEvent(QKeyEvent* event) {
    constexpr double step = 40;
    switch (event->key()) {
        case Qt::Key_Plus:
            zoomBy(zoomStep);
            return;
        case Qt::Key_Minus:
            zoomBy(1 / zoomStep);
            return;
        case Qt::Key_0:
        case Qt::Key_Home:
            fit();
            return;
        case Qt::Key_Left:
            port.pan({step, 0});
            break;
        case Qt::Key_Right:
            port.pan({-step, 0});
            break;
        case Qt::Key_Up:
            port.pan({0, step});
            break;
        case Qt::Key_Down:
            port.pan({0, -step});
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
    const auto element = hit(port.toModel(pixel), true);
    const ElementIndex* index = geometry->index();
    if (!element || !index) return {};
    QString text = index->type(*element) + u'\n' + guidText(index->guid(*element));
    const Mark mark = marks ? marks->of(*element) : Mark::None;
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
