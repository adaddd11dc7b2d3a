#include "desktop/report/DebugPanel.hpp"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace desktop {

namespace {

/// What is kept of the output not yet shown; of more than twice as much the older part goes.
constexpr std::size_t keptBytes = 1U << 20U;
constexpr int keptLines = 20000;

}  // namespace

DebugPanel::DebugPanel(QWidget* parent) : QWidget(parent), view(new QPlainTextEdit(this)) {
    view->setObjectName(QStringLiteral("debug"));
    view->setAccessibleName(QStringLiteral("Debug output"));
    view->setReadOnly(true);
    view->setUndoRedoEnabled(false);
    view->setMaximumBlockCount(keptLines);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addWidget(view);
    timer.setSingleShot(true);
    timer.setInterval(100);
    connect(&timer, &QTimer::timeout, this, &DebugPanel::flush);
}

void DebugPanel::append(const char* text) {
    pending += text;
    if (pending.size() > 2 * keptBytes) pending.erase(0, pending.size() - keptBytes);
    if (isVisible() && !timer.isActive()) timer.start();
}

QString DebugPanel::text() const {
    return view->toPlainText() + QString::fromStdString(pending);
}

void DebugPanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    flush();
}

void DebugPanel::flush() {
    if (pending.empty()) return;
    QScrollBar* bar = view->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    QTextCursor end(view->document());
    end.movePosition(QTextCursor::End);
    end.insertText(QString::fromStdString(pending));
    pending.clear();
    if (atEnd) bar->setValue(bar->maximum());
}

}  // namespace desktop
