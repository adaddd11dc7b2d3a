#include "desktop/plan/PlanPanel.hpp"

#include "desktop/QtText.hpp"
#include "desktop/look/ElidedLabel.hpp"
#include "model/base/ElementTypeIds.hpp"

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace desktop {

namespace {

/// The choice's entry for the whole building; storeys have their positions.
constexpr int AllStoreys = -1;

QToolButton* makeButton(const QString& text, const QString& name, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setAutoRaise(true);
    return button;
}

/// As drawings have it: "+2.90 m".
QString heightText(double metres) {
    if (!(std::abs(metres) < 1e6)) return {};
    const double rounded = std::round(metres * 100) / 100;
    const QString sign = rounded > 0 ? QStringLiteral("+") : rounded < 0 ? QStringLiteral("−") : QStringLiteral("±");
    return PlanPanel::tr("%1 m").arg(sign + QLocale::system().toString(std::abs(rounded), 'f', 2));
}

}  // namespace

PlanPanel::PlanPanel(QWidget* parent)
    : QWidget(parent),
      geometry_(new PlanGeometry(this)),
      view_(new PlanView(geometry_, this)),
      choice_(new QComboBox(this)),
      unplaced_(new ElidedLabel(this)) {
    choice_->setObjectName(QStringLiteral("storeys"));
    choice_->setAccessibleName(tr("Storey shown in the plan"));
    // As wide as there is room, not as the longest entry is: the entries change while a review is open.
    choice_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice_->setMinimumContentsLength(8);
    layers_ = makeButton(tr("Layers"), tr("Choose what is shown in the plan"), this);
    layers_->setObjectName(QStringLiteral("layers"));
    layers_->setPopupMode(QToolButton::InstantPopup);
    fillLayers();
    auto* closer = makeButton(QStringLiteral("+"), tr("Zoom in"), this);
    auto* farther = makeButton(QStringLiteral("−"), tr("Zoom out"), this);
    auto* whole = makeButton(tr("Fit"), tr("Show the whole storey"), this);

    auto* top = new QHBoxLayout;
    top->addWidget(choice_, 1);
    top->addWidget(layers_);
    top->addWidget(closer);
    top->addWidget(farther);
    top->addWidget(whole);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addLayout(top);
    all->addWidget(view_, 1);
    all->addWidget(unplaced_);
    unplaced_->setObjectName(QStringLiteral("unplaced"));
    unplaced_->setToolTip(tr("The file does not say where they stand, or by a curve of a kind that is not followed"));
    unplaced_->hide();

    constexpr double Step = 1.25;
    connect(closer, &QToolButton::clicked, this, [this] { view_->zoomBy(Step); });
    connect(farther, &QToolButton::clicked, this, [this] { view_->zoomBy(1 / Step); });
    connect(whole, &QToolButton::clicked, this, [this] { view_->fit(); });
    connect(choice_, &QComboBox::currentIndexChanged, this, &PlanPanel::showChosen);
    connect(view_, &PlanView::elementClicked, this, &PlanPanel::elementClicked);
    connect(geometry_, &PlanGeometry::grown, this, &PlanPanel::showUnplaced);
}

void PlanPanel::fillLayers() {
    auto* menu = new QMenu(layers_);
    const PlanLayers remembered = PlanLayers::remembered();
    for (const PlanLayer layer : PlanLayerList) {
        QAction* action = menu->addAction(layerText(layer));
        action->setCheckable(true);
        action->setChecked(remembered.has(layer));
        connect(action, &QAction::toggled, this, [this, layer](bool on) {
            PlanLayers layers = view_->layers();
            layers.set(layer, on);
            layers.remember();
            view_->setLayers(layers);
        });
    }
    layers_->setMenu(menu);
    view_->setLayers(remembered);
}

void PlanPanel::refresh() {
    if (elements_) view_->refreshLabels();
}

void PlanPanel::setSource(const model::Model* model, const ElementIndex* index) {
    view_->setSelected(std::nullopt);
    view_->setMarks(nullptr);
    view_->setStoreys({});
    marks_ = nullptr;
    elements_ = index;
    geometry_->setSource(model, index);
    fillChoice();
    showUnplaced();
    view_->fit();
}

void PlanPanel::fillChoice() {
    const QSignalBlocker quiet(choice_);
    choice_->clear();
    choice_->setEnabled(elements_ != nullptr);
    if (!elements_) return;
    const auto& storeys = elements_->storeys();
    // The highest on top, as storeys lie in a building.
    for (auto i = static_cast<int>(storeys.size()); i-- > 0;) choice_->addItem({}, i);
    choice_->addItem({}, AllStoreys);
    labelChoice();
    choice_->setCurrentIndex(storeys.empty() ? 0 : choice_->findData(static_cast<int>(firstStorey())));
    showChosen();
}

/// Where people enter: the lowest storey with walls or rooms that is not below the ground, which lies at height 0.
/// Where there is none, or heights are not known, the one with most elements.
std::uint32_t PlanPanel::firstStorey() const {
    const auto& storeys = elements_->storeys();
    std::vector<bool> enclosed(storeys.size());
    for (model::Element element = 0; element < elements_->size(); ++element) {
        const std::int32_t type = elements_->typeId(element);
        if (type == model::ElementTypeIds::Wall || type == model::ElementTypeIds::Zone) {
            enclosed[elements_->storey(element)] = true;
        }
    }
    double lowest = 0, highest = 0;
    for (const StoreyInfo& storey : storeys) {
        lowest = std::min(lowest, storey.elevation.value_or(0));
        highest = std::max(highest, storey.elevation.value_or(0));
    }
    // A ground floor may lie somewhat below 0; in which unit, the heights of all tell.
    const double ground = -(highest - lowest) / 20;
    for (std::uint32_t i = 0; i < storeys.size(); ++i) {
        if (enclosed[i] && storeys[i].elevation && *storeys[i].elevation >= ground) return i;
    }
    std::uint32_t most = 0;
    for (std::uint32_t i = 0; i < storeys.size(); ++i) {
        if (!storeys[i].name.isEmpty() && storeys[i].elementCount > storeys[most].elementCount) most = i;
    }
    return most;
}

/// Says beside each storey how many of the marked elements it has, so that none is missed on another one.
void PlanPanel::labelChoice() {
    const std::vector<std::size_t> marked = markedPerStorey();
    const std::size_t all = std::accumulate(marked.begin(), marked.end(), std::size_t{0});
    for (int entry = 0; entry < choice_->count(); ++entry) {
        const int storey = choice_->itemData(entry).toInt();
        const auto position = static_cast<std::size_t>(std::max(storey, 0));
        const std::size_t here = storey == AllStoreys ? all : marked[position];
        QString text = nameOf(storey);
        const auto elevation = storey == AllStoreys ? std::nullopt : elements_->storeys()[position].elevation;
        if (elevation && geometry_->metresPerUnit() && !elements_->storeys()[position].name.isEmpty()) {
            text += u' ' + heightText(*elevation * *geometry_->metresPerUnit());
        }
        if (here) {
            text += tr(" – %1 of %2 marked").arg(number(static_cast<qint64>(here)), number(static_cast<qint64>(all)));
        }
        if (choice_->itemText(entry) != text) choice_->setItemText(entry, text);
    }
}

QString PlanPanel::nameOf(int storey) const {
    if (storey == AllStoreys || !elements_) return tr("All storeys");
    const QString& name = elements_->storeys()[static_cast<std::size_t>(storey)].name;
    return name.isEmpty() ? tr("(in no storey)") : name;
}

QString PlanPanel::storeyName() const {
    return nameOf(choice_->currentIndex() < 0 ? AllStoreys : choice_->currentData().toInt());
}

std::vector<std::size_t> PlanPanel::markedPerStorey() const {
    std::vector<std::size_t> marked(elements_ ? elements_->storeys().size() : 0);
    if (!marks_ || !elements_) return marked;
    for (const auto& [element, mark] : marks_->all()) ++marked[elements_->storey(element)];
    return marked;
}

std::optional<std::uint32_t> PlanPanel::chosenStorey() const {
    const int storey = choice_->currentIndex() < 0 ? AllStoreys : choice_->currentData().toInt();
    if (storey == AllStoreys) return std::nullopt;
    return static_cast<std::uint32_t>(storey);
}

void PlanPanel::showChosen() {
    if (!elements_) return;
    std::vector<std::uint32_t> storeys(elements_->storeys().size());
    std::iota(storeys.begin(), storeys.end(), 0U);
    if (const auto one = chosenStorey()) storeys = {*one};
    view_->setStoreys(storeys);
    showUnplaced();
}

void PlanPanel::showUnplaced() {
    const auto count = static_cast<qint64>(geometry_->unplaced());
    unplaced_->setVisible(count > 0);
    unplaced_->setText(
        tr("Without a place in the plan: %1")
            .arg(counted(count, QT_TRANSLATE_NOOP("Counts", "element"), QT_TRANSLATE_NOOP("Counts", "elements"))));
}

void PlanPanel::chooseStorey(std::uint32_t storey) {
    choice_->setCurrentIndex(choice_->findData(static_cast<int>(storey)));
}

void PlanPanel::setMarks(const PlanMarks* marks, bool choose) {
    marks_ = marks;
    if (!elements_) return;
    labelChoice();
    const std::vector<std::size_t> marked = markedPerStorey();
    const auto most = std::max_element(marked.begin(), marked.end());
    const auto now = chosenStorey();
    if (choose && most != marked.end() && *most > 0 && now && marked[*now] == 0) {
        chooseStorey(static_cast<std::uint32_t>(most - marked.begin()));
    }
    view_->setMarks(marks_);
}

void PlanPanel::showElement(std::optional<model::Element> element) {
    if (element && elements_) {
        const auto now = chosenStorey();
        const std::uint32_t wanted = elements_->storey(*element);
        if (now && *now != wanted && !elements_->storeys()[wanted].name.isEmpty()) chooseStorey(wanted);
    }
    view_->setSelected(element);
}

double PlanPanel::heightOfPlan() const {
    const auto storey = chosenStorey();
    return storey && elements_ ? elements_->storeys()[*storey].elevation.value_or(0) : 0;
}

std::optional<host::PickedPoint> PlanPanel::pickPoint(const QString& prompt) {
    if (picking_ || !elements_) return std::nullopt;
    picking_ = true;
    const QString text = prompt.isEmpty() ? tr("Click a point") : prompt;
    view_->setPrompt(tr("%1   (Esc cancels)").arg(text));
    view_->setFocus(Qt::OtherFocusReason);
    qApp->installEventFilter(this);

    std::optional<host::PickedPoint> picked;
    QEventLoop loop;
    connect(this, &PlanPanel::pickingEnded, &loop, &QEventLoop::quit);
    connect(view_, &PlanView::pointClicked, &loop, [&](QPointF point) {
        picked = host::PickedPoint{{point.x(), point.y(), heightOfPlan()}, std::nullopt};
        if (const auto element = view_->hit(point, false)) {
            API_Guid guid;
            std::copy(elements_->guid(*element).begin(), elements_->guid(*element).end(), std::begin(guid.bytes));
            picked->hit = guid;
        }
        loop.quit();
    });
    loop.exec();

    qApp->removeEventFilter(this);
    view_->setPrompt({});
    picking_ = false;
    return picked;
}

void PlanPanel::cancelPicking() {
    if (picking_) Q_EMIT pickingEnded();
}

/// While a point is asked for, Escape cancels wherever the focus is. It comes as a shortcut first and as a key only if
/// nobody wants the shortcut; a menu that is open keeps it.
bool PlanPanel::eventFilter(QObject* watched, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (picking_ && key && watched->isWidgetType() && !QApplication::activePopupWidget()) {
        cancelPicking();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
