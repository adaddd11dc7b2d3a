#include "desktop/window/MainToolBar.hpp"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <QToolButton>

namespace desktop {

MainToolBar::MainToolBar(QWidget* parent) : QToolBar(tr("Tool Bar"), parent) {
    setObjectName(QStringLiteral("mainToolBar"));
    setAccessibleName(windowTitle());
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize({20, 20});
    setMovable(false);
}

void MainToolBar::setButtons(const std::vector<Button>& buttons) {
    clear();
    buttons_.clear();
    for (const Button& button : buttons) {
        if (!button.action) continue;
        if (button.newGroup && !buttons_.empty()) addSeparator();
        if (!button.text.isEmpty()) button.action->setIconText(button.text);
        addAction(button.action);
        if (auto* shown = qobject_cast<QToolButton*>(widgetForAction(button.action))) {
            shown->setAccessibleName(button.action->iconText());
            shown->setFocusPolicy(Qt::TabFocus);
        }
        buttons_.push_back(button);
    }
    takeIcons();
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    layout()->invalidate();
    widthWithTexts_ = layout()->sizeHint().width();
    chooseTexts();
}

/// In a narrow window the texts would push the last commands out of it.
void MainToolBar::chooseTexts() {
    setToolButtonStyle(width() < widthWithTexts_ ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
}

void MainToolBar::resizeEvent(QResizeEvent* event) {
    QToolBar::resizeEvent(event);
    chooseTexts();
}

void MainToolBar::takeIcons() {
    for (const Button& button : buttons_) {
        button.action->setIcon(icon(button.picture, palette()));
        // The icon is the tool bar's; menus of plain words are read faster.
        button.action->setIconVisibleInMenu(false);
    }
}

void MainToolBar::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) takeIcons();
}

}  // namespace desktop
