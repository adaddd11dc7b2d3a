#include "desktop/plan/PlanPanel.hpp"

#include "desktop/Text.hpp"

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

namespace desktop {

namespace {

/// The choice's entry for the whole building; storeys have their positions.
constexpr int allStoreys = -1;

QToolButton* makeButton(const QString& text, const QString& name, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setAutoRaise(true);
    return button;
}

}  // namespace

PlanPanel::PlanPanel(QWidget* parent)
    : QWidget(parent),
      geometry(new PlanGeometry(this)),
      plan(new PlanView(geometry, this)),
      choice(new QComboBox(this)) {
    choice->setObjectName(QStringLiteral("storeys"));
    choice->setAccessibleName(QStringLiteral("Storey shown in the plan"));
    // As wide as there is room, not as the longest entry is: the entries change while a review is open.
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setMinimumContentsLength(12);
    auto* closer = makeButton(QStringLiteral("+"), QStringLiteral("Zoom in"), this);
    auto* farther = makeButton(QStringLiteral("−"), QStringLiteral("Zoom out"), this);
    auto* whole = makeButton(QStringLiteral("Fit"), QStringLiteral("Show the whole storey"), this);

    auto* top = new QHBoxLayout;
    top->addWidget(choice, 1);
    top->addWidget(closer);
    top->addWidget(farther);
    top->addWidget(whole);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addLayout(top);
    all->addWidget(plan, 1);

    constexpr double step = 1.25;
    connect(closer, &QToolButton::clicked, this, [this] { plan->zoomBy(step); });
    connect(farther, &QToolButton::clicked, this, [this] { plan->zoomBy(1 / step); });
    connect(whole, &QToolButton::clicked, this, [this] { plan->fit(); });
    connect(choice, &QComboBox::currentIndexChanged, this, &PlanPanel::showChosen);
    connect(plan, &PlanView::elementClicked, this, &PlanPanel::elementClicked);
}

void PlanPanel::setSource(const model::Model* source, const ElementIndex* index) {
    plan->setSelected(std::nullopt);
    plan->setMarks(nullptr);
    plan->setStoreys({});
    marks = nullptr;
    elements = index;
    geometry->setSource(source, index);
    fillChoice();
    plan->fit();
}

void PlanPanel::fillChoice() {
    const QSignalBlocker quiet(choice);
    choice->clear();
    choice->setEnabled(elements != nullptr);
    if (!elements) return;
    const auto& storeys = elements->storeys();
    std::uint32_t most = 0;
    for (std::uint32_t i = 0; i < storeys.size(); ++i) {
        if (!storeys[i].name.isEmpty() && storeys[i].elementCount > storeys[most].elementCount) most = i;
    }
    // The highest on top, as storeys lie in a building.
    for (auto i = static_cast<int>(storeys.size()); i-- > 0;) choice->addItem({}, i);
    choice->addItem({}, allStoreys);
    labelChoice();
    choice->setCurrentIndex(storeys.empty() ? 0 : choice->findData(static_cast<int>(most)));
    showChosen();
}

/// Says beside each storey how many of the marked elements it has, so that none is missed on another one.
void PlanPanel::labelChoice() {
    const std::vector<std::size_t> marked = markedPerStorey();
    const std::size_t all = std::accumulate(marked.begin(), marked.end(), std::size_t{0});
    for (int entry = 0; entry < choice->count(); ++entry) {
        const int storey = choice->itemData(entry).toInt();
        const auto position = static_cast<std::size_t>(std::max(storey, 0));
        const std::size_t here = storey == allStoreys ? all : marked[position];
        QString text = storey == allStoreys ? QStringLiteral("All storeys") : elements->storeys()[position].name;
        if (text.isEmpty()) text = QStringLiteral("(in no storey)");
        if (here) {
            text += QStringLiteral(" – %1 of %2 marked")
                        .arg(number(static_cast<qint64>(here)), number(static_cast<qint64>(all)));
        }
        if (choice->itemText(entry) != text) choice->setItemText(entry, text);
    }
}

std::vector<std::size_t> PlanPanel::markedPerStorey() const {
    std::vector<std::size_t> marked(elements ? elements->storeys().size() : 0);
    if (!marks || !elements) return marked;
    for (const auto& [element, mark] : marks->all()) ++marked[elements->storey(element)];
    return marked;
}

std::optional<std::uint32_t> PlanPanel::chosenStorey() const {
    const int storey = choice->currentIndex() < 0 ? allStoreys : choice->currentData().toInt();
    if (storey == allStoreys) return std::nullopt;
    return static_cast<std::uint32_t>(storey);
}

void PlanPanel::showChosen() {
    if (!elements) return;
    std::vector<std::uint32_t> storeys(elements->storeys().size());
    std::iota(storeys.begin(), storeys.end(), 0U);
    if (const auto one = chosenStorey()) storeys = {*one};
    plan->setStoreys(storeys);
}

void PlanPanel::chooseStorey(std::uint32_t storey) {
    choice->setCurrentIndex(choice->findData(static_cast<int>(storey)));
}

void PlanPanel::setMarks(const PlanMarks* shown, bool choose) {
    marks = shown;
    if (!elements) return;
    labelChoice();
    const std::vector<std::size_t> marked = markedPerStorey();
    const auto most = std::max_element(marked.begin(), marked.end());
    const auto now = chosenStorey();
    if (choose && most != marked.end() && *most > 0 && now && marked[*now] == 0) {
        chooseStorey(static_cast<std::uint32_t>(most - marked.begin()));
    }
    plan->setMarks(marks);
}

void PlanPanel::showElement(std::optional<model::Element> element) {
    if (element && elements) {
        const auto now = chosenStorey();
        const std::uint32_t wanted = elements->storey(*element);
        if (now && *now != wanted && !elements->storeys()[wanted].name.isEmpty()) chooseStorey(wanted);
    }
    plan->setSelected(element);
}

double PlanPanel::heightOfPlan() const {
    const auto storey = chosenStorey();
    return storey && elements ? elements->storeys()[*storey].elevation.value_or(0) : 0;
}

std::optional<host::PickedPoint> PlanPanel::pickPoint(const QString& prompt) {
    if (isPicking || !elements) return std::nullopt;
    isPicking = true;
    const QString text = prompt.isEmpty() ? QStringLiteral("Click a point") : prompt;
    plan->setPrompt(QStringLiteral("%1   (Esc cancels)").arg(text));
    plan->setFocus(Qt::OtherFocusReason);
    qApp->installEventFilter(this);

    std::optional<host::PickedPoint> picked;
    QEventLoop loop;
    connect(this, &PlanPanel::pickingEnded, &loop, &QEventLoop::quit);
    connect(plan, &PlanView::pointClicked, &loop, [&](QPointF point) {
        picked = host::PickedPoint{{point.x(), point.y(), heightOfPlan()}, std::nullopt};
        if (const auto element = plan->hit(point, false)) {
            API_Guid guid;
            std::copy(elements->guid(*element).begin(), elements->guid(*element).end(), std::begin(guid.bytes));
            picked->hit = guid;
        }
        loop.quit();
    });
    loop.exec();

    qApp->removeEventFilter(this);
    plan->setPrompt({});
    isPicking = false;
    return picked;
}

void PlanPanel::cancelPicking() {
    if (isPicking) Q_EMIT pickingEnded();
}

/// While a point is asked for, Escape cancels wherever the focus is. It comes as a shortcut first and as a key only if
/// nobody wants the shortcut; a menu that is open keeps it.
bool PlanPanel::eventFilter(QObject* watched, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isPicking && key && watched->isWidgetType() && !QApplication::activePopupWidget()) {
        cancelPicking();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
