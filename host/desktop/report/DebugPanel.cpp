#include "desktop/report/DebugPanel.hpp"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace desktop {

namespace {

/// What is kept of the output not yet shown; of more than twice as much the older part goes.
constexpr std::size_t KeptBytes = 1U << 20U;
constexpr int KeptLines = 20000;

}  // namespace

DebugPanel::DebugPanel(QWidget* parent) : QWidget(parent), view_(new QPlainTextEdit(this)) {
    view_->setObjectName(QStringLiteral("debug"));
    view_->setAccessibleName(tr("Debug output"));
    view_->setReadOnly(true);
    view_->setUndoRedoEnabled(false);
    view_->setMaximumBlockCount(KeptLines);
    view_->setLineWrapMode(QPlainTextEdit::NoWrap);
    view_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addWidget(view_);
    timer_.setSingleShot(true);
    timer_.setInterval(100);
    connect(&timer_, &QTimer::timeout, this, &DebugPanel::flush);
}

void DebugPanel::append(const char* text) {
    pending_ += text;
    // Twice as much, so that the front is cut off once a megabyte and not at each text.
    if (pending_.size() > 2 * KeptBytes) pending_.erase(0, pending_.size() - KeptBytes);
    if (isVisible() && !timer_.isActive()) timer_.start();
}

QString DebugPanel::text() const {
    return view_->toPlainText() + QString::fromStdString(pending_);
}

void DebugPanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    flush();
}

void DebugPanel::flush() {
    if (pending_.empty()) return;
    QScrollBar* bar = view_->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    QTextCursor end(view_->document());
    end.movePosition(QTextCursor::End);
    end.insertText(QString::fromStdString(pending_));
    pending_.clear();
    if (atEnd) bar->setValue(bar->maximum());
}

}  // namespace desktop
