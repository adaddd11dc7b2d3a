#include "desktop/dialogs/UpdateHints.hpp"

#include "desktop/QtText.hpp"
#include "updatefile/Hints.hpp"
#include "updatefile/ReviewList.hpp"

#include <QFile>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace desktop {

namespace {

const frontend::List* reviewOf(const frontend::Dialog& dialog) {
    for (const frontend::Item& item : dialog.items()) {
        if (item.list && item.list->tabFields().size() == updatefile::reviewlist::ColumnCount)
            return dialog.list(item.number);
    }
    return nullptr;
}

}  // namespace

QStringList hintsAbout(const std::string& file, const frontend::Dialog& dialog, const model::Model& model) {
    const frontend::List* list = reviewOf(dialog);
    if (!list) return {};
    QFile source(pathText(file));
    if (!source.open(QIODevice::ReadOnly)) {
        return {QStringLiteral("It cannot be read (%1); check that you may read it").arg(source.errorString())};
    }
    updatefile::UpdateFileScan scan([&model](const updatefile::Guid& guid) { return model.find(guid).has_value(); });
    constexpr qint64 BlockSize = 1 << 16;
    for (QByteArray block = source.read(BlockSize); !block.isEmpty(); block = source.read(BlockSize)) {
        scan.read({block.constData(), static_cast<std::size_t>(block.size())});
    }
    QStringList hints;
    // The end of what could be read looks like the end of the file, here as to the add-on.
    if (source.error() != QFileDevice::NoError) {
        hints += QStringLiteral(
                     "It could not be read to its end (%1), so rows are missing; close this, repair the file or its "
                     "disk, and import it again")
                     .arg(source.errorString());
    }
    const updatefile::ReviewCounts counts{static_cast<std::uint64_t>(list->rowCount()), list->rowsLost()};
    for (const std::string& hint : updatefile::hintsFor(scan.finish(), counts, "the table of elements shows")) {
        QString text = toQString(hint);
        hints += text.replace(0, 1, text.at(0).toUpper());
    }
    return hints;
}

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
    text_->setAccessibleName(QStringLiteral("Hints"));
    text_->setReadOnly(true);
    text_->setTabChangesFocus(true);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 4, 6, 6);
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
    title_->setText(QStringLiteral("%1 about %2").arg(counted(hints.size(), "hint", "hints"), file));
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
