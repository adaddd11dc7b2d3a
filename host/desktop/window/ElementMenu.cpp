#include "desktop/window/ElementMenu.hpp"

#include "desktop/QtText.hpp"
#include "desktop/SaveDialog.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/elements/ElementExport.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/look/Message.hpp"
#include "desktop/plan/PlanCursor.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/window/AddOnMenu.hpp"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>
#include <QTableView>
#include <QTreeWidget>
#include <algorithm>

namespace desktop {

ElementMenu::ElementMenu(const Parts& parts) : QObject(parts.window), parts_(parts) {
    QWidget* plan = parts_.plan.view();
    for (QWidget* view : std::initializer_list<QWidget*>{parts_.elements.table(), parts_.inspector.tree(), plan})
        view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(parts_.elements.table(), &QWidget::customContextMenuRequested, this, &ElementMenu::showForTable);
    connect(parts_.inspector.tree(), &QWidget::customContextMenuRequested, this, &ElementMenu::showForData);
    connect(plan, &QWidget::customContextMenuRequested, this, &ElementMenu::showForPlan);
}

void ElementMenu::showForTable(const QPoint& place) {
    QTableView& table = *parts_.elements.table();
    const QModelIndex index = table.indexAt(place);
    const auto element = index.isValid() ? parts_.elements.elementAt(index.row()) : std::nullopt;
    QMenu menu(parts_.window);
    fill(menu, element, index.isValid() ? std::optional(parts_.elements.cellText(index)) : std::nullopt);
    menu.exec(table.viewport()->mapToGlobal(place));
}

void ElementMenu::showForPlan(const QPoint& place) {
    const PlanView& plan = *parts_.plan.view();
    auto element = plan.hit(plan.viewport().toModel(place), true);
    // The menu key has no place; what the keyboard points at is meant then, or what is selected.
    if (!element && !plan.underMouse()) element = parts_.elements.current();
    if (const auto pointedAt = parts_.planCursor.element()) element = pointedAt;
    if (!parts_.document.isOpen() || parts_.plan.picking()) return;
    QMenu menu(parts_.window);
    fill(menu, element, std::nullopt);
    menu.exec(plan.mapToGlobal(place));
}

void ElementMenu::showForData(const QPoint& place) {
    const QTreeWidget& tree = *parts_.inspector.tree();
    const QTreeWidgetItem* row = tree.itemAt(place);
    QMenu menu(parts_.window);
    const bool isValue = row && row->childCount() == 0;
    fill(menu, parts_.elements.current(), isValue ? std::optional(parts_.inspector.storedValue(*row)) : std::nullopt);
    if (isValue && (row->flags() & Qt::ItemIsEditable)) {
        menu.addSeparator();
        QAction* change = menu.addAction(tr("&Propose Another Value"));
        change->setObjectName(QStringLiteral("proposeValue"));
        connect(change, &QAction::triggered, this, [this, row] { parts_.inspector.editValue(*row); });
    }
    menu.exec(tree.viewport()->mapToGlobal(place));
}

void ElementMenu::fill(QMenu& menu, std::optional<model::Element> element, const std::optional<QString>& value) {
    menu.setObjectName(QStringLiteral("elementMenu"));
    const auto add = [&](const QString& text, const char* name, bool possible, auto act) {
        QAction* action = menu.addAction(text);
        action->setObjectName(QString::fromLatin1(name));
        action->setEnabled(possible);
        connect(action, &QAction::triggered, this, act);
    };
    if (value) add(tr("Copy &Value"), "copyValue", !value->isEmpty(), [this, value] { copy(*value); });
    add(tr("Copy &GUID"), "copyGuid", element.has_value(), [this, element] { copyGuids(*element); });
    menu.addSeparator();
    // Its own command is off while its dialog is open, which takes a GUID all the same.
    add(tr("&Look Up"), "lookUp", element && parts_.addOn.lookUpAction(),
        [this, element] { Q_EMIT lookUpWanted(*element); });
    add(tr("&Show in Plan"), "showInPlan", element.has_value(), [this, element] { Q_EMIT showInPlanWanted(*element); });
    menu.addSeparator();
    add(tr("&Export These…"), "exportThese", !parts_.elements.shown().empty(), [this] { exportShown(); });
}

/// Of all that are selected where the element is one of them, a line for each.
void ElementMenu::copyGuids(model::Element element) {
    std::vector<model::Element> elements = parts_.elements.selected();
    if (std::find(elements.begin(), elements.end(), element) == elements.end()) elements = {element};
    QStringList guids;
    for (const model::Element each : elements) guids += guidText(parts_.document.index()->guid(each));
    if (guids.size() == 1) return copy(guids.first());
    QApplication::clipboard()->setText(guids.join(u'\n'));
    parts_.window->statusBar()->showMessage(
        tr("Copied %1")
            .arg(counted(guids.size(), QT_TRANSLATE_NOOP("Counts", "GUID"), QT_TRANSLATE_NOOP("Counts", "GUIDs"))),
        5000);
}

void ElementMenu::copy(const QString& text) {
    QApplication::clipboard()->setText(text);
    parts_.window->statusBar()->showMessage(tr("Copied %1").arg(visible(text)), 5000);
}

void ElementMenu::exportShown() {
    const QFileInfo model(parts_.document.path());
    const QString path = askWhereToSave(parts_.window, QStringLiteral("exportDialog"), tr("Export the Elements Shown"),
                                        {{tr("Workbook (*.xlsx)"), QStringLiteral("xlsx")},
                                         {tr("Comma-separated (*.csv)"), QStringLiteral("csv")},
                                         {tr("TAB-separated (*.tsv)"), QStringLiteral("tsv")}},
                                        model.absoluteDir().filePath(model.completeBaseName() + u'-' + tr("elements")));
    if (!path.isEmpty()) exportTo(path);
}

bool ElementMenu::exportTo(const QString& path) {
    const auto& shown = parts_.elements.shown();
    QString error;
    {
        const WaitCursor wait;
        const FurtherColumns further{parts_.elements.roomsShown() ? parts_.document.index() : nullptr,
                                     parts_.elements.shownItems()};
        error = writeGrid(gridOf(*parts_.document.model(), shown, further), path);
    }
    if (error.isEmpty()) {
        parts_.window->statusBar()->showMessage(
            tr("%1 written to %2")
                .arg(counted(static_cast<qint64>(shown.size()), QT_TRANSLATE_NOOP("Counts", "element"),
                             QT_TRANSLATE_NOOP("Counts", "elements")),
                     path),
            10000);
        return true;
    }
    QMessageBox box(QMessageBox::Warning, tr("Export"), tr("%1 could not be written.").arg(QFileInfo(path).fileName()),
                    QMessageBox::Ok, parts_.window);
    box.setObjectName(QStringLiteral("exportMessage"));
    box.setTextFormat(Qt::PlainText);
    setFurtherText(box, error);
    box.exec();
    return false;
}

}  // namespace desktop
