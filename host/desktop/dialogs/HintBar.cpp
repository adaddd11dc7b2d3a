#include "desktop/dialogs/HintBar.hpp"

#include "desktop/QtText.hpp"

#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace desktop {

HintBar::HintBar(QWidget* parent) : QFrame(parent), title_(new QToolButton), text_(new QPlainTextEdit) {
    setObjectName(QStringLiteral("hintBar"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    title_->setObjectName(QStringLiteral("hintTitle"));
    title_->setAutoRaise(true);
    title_->setCheckable(true);
    title_->setChecked(true);
    title_->setArrowType(Qt::DownArrow);
    title_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    // A click must not take the arrow keys away from the list.
    title_->setFocusPolicy(Qt::TabFocus);
    text_->setObjectName(QStringLiteral("hintText"));
    text_->setAccessibleName(tr("Hints"));
    text_->setReadOnly(true);
    text_->setTabChangesFocus(true);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 2, 6, 2);
    all->setSpacing(2);
    all->addWidget(title_, 0, Qt::AlignLeft);
    all->addWidget(text_);
    connect(title_, &QToolButton::toggled, this, [this](bool open) {
        title_->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
        text_->setVisible(open);
        Q_EMIT folded();
    });
    hide();
}

void HintBar::setHints(const QString& file, const QStringList& hints) {
    title_->setText(
        tr("%1 about %2")
            .arg(counted(hints.size(), QT_TRANSLATE_NOOP("Counts", "hint"), QT_TRANSLATE_NOOP("Counts", "hints")),
                 file));
    title_->setAccessibleName(title_->text());
    text_->setPlainText(hints.join(u'\n'));
    // Most hints take two lines; more than two of them are scrolled to.
    const int lines = static_cast<int>(std::clamp<qsizetype>(hints.size() * 2, 2, 5));
    text_->setFixedHeight(lines * text_->fontMetrics().lineSpacing() + 2 * text_->frameWidth() + 8);
}

QStringList HintBar::hints() const {
    return text_->toPlainText().split(u'\n', Qt::SkipEmptyParts);
}

}  // namespace desktop
