#include "desktop/window/OnScreen.hpp"

#include <QDialog>
#include <QEvent>
#include <QMessageBox>
#include <QScreen>

namespace desktop {

namespace {

/// What the desktop draws around windows, as far as the one that the dialog belongs to shows it.
QSize frameAround(const QWidget& dialog) {
    if (!dialog.parentWidget()) return {};
    const QWidget& window = *dialog.parentWidget()->window();
    return window.frameGeometry().size() - window.geometry().size();
}

/// The beginning, up to a space where there is one near.
QString beginningOf(const QString& text) {
    qsizetype end = text.lastIndexOf(u' ', OnScreen::LongestText);
    if (end < OnScreen::LongestText * 3 / 4) end = OnScreen::LongestText;
    if (text[end - 1].isHighSurrogate()) --end;
    return text.left(end).trimmed() + u'…';
}

void shorten(QMessageBox& box) {
    QStringList whole;
    if (box.text().size() > OnScreen::LongestText) {
        whole += box.text();
        box.setText(beginningOf(box.text()));
    }
    if (box.informativeText().size() > OnScreen::LongestText) {
        whole += box.informativeText();
        box.setInformativeText(beginningOf(box.informativeText()));
    }
    if (!whole.isEmpty() && box.detailedText().isEmpty()) box.setDetailedText(whole.join(QStringLiteral("\n\n")));
}

}  // namespace

bool OnScreen::eventFilter(QObject* watched, QEvent* event) {
    auto* dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
    if (!dialog || !dialog->isWindow()) return false;
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) shorten(*box);
    const QSize room = dialog->screen()->availableSize() - frameAround(*dialog);
    if (!QRect(QPoint(), room).contains(QRect(QPoint(), dialog->size())))
        dialog->resize(dialog->size().boundedTo(room));
    return false;
}

}  // namespace desktop
