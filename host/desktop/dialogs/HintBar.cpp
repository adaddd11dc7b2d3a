#include "desktop/dialogs/HintBar.hpp"

#include "desktop/Text.hpp"

#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace desktop {

HintBar::HintBar(QWidget* parent) : QFrame(parent), title(new QToolButton), text(new QPlainTextEdit) {
    setObjectName(QStringLiteral("hintBar"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    title->setObjectName(QStringLiteral("hintTitle"));
    title->setAutoRaise(true);
    title->setCheckable(true);
    title->setChecked(true);
    title->setArrowType(Qt::DownArrow);
    title->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    // A click must not take the arrow keys away from the list.
    title->setFocusPolicy(Qt::TabFocus);
    text->setObjectName(QStringLiteral("hintText"));
    text->setAccessibleName(QStringLiteral("Hints"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 4, 6, 6);
    all->setSpacing(2);
    all->addWidget(title, 0, Qt::AlignLeft);
    all->addWidget(text);
    connect(title, &QToolButton::toggled, this, [this](bool open) {
        title->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
        text->setVisible(open);
        Q_EMIT folded();
    });
    hide();
}

void HintBar::setHints(const QString& file, const QStringList& hints) {
    title->setText(QStringLiteral("%1 about %2").arg(counted(hints.size(), "hint", "hints"), file));
    title->setAccessibleName(title->text());
    text->setPlainText(hints.join(u'\n'));
    // Most hints take two lines; more than two of them are scrolled to.
    const int lines = static_cast<int>(std::clamp<qsizetype>(hints.size() * 2, 2, 5));
    text->setFixedHeight(lines * text->fontMetrics().lineSpacing() + 2 * text->frameWidth() + 8);
}

QStringList HintBar::hints() const {
    return text->toPlainText().split(u'\n', Qt::SkipEmptyParts);
}

}  // namespace desktop
