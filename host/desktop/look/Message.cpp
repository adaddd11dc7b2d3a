#include "desktop/look/Message.hpp"

#include "desktop/QtText.hpp"

#include <QLabel>
#include <QMessageBox>

namespace desktop {

void setFurtherText(QMessageBox& box, const QString& text) {
    box.setInformativeText(visible(text));
    // The box has a format for its first text alone.
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
}

}  // namespace desktop
