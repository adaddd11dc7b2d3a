#pragma once

class QMessageBox;
class QString;

namespace desktop {

/// What a message says further, as it stands: Qt would take some texts for mark-up, and show others escaped.
/// Hidden characters are made visible.
void setFurtherText(QMessageBox& box, const QString& text);

}  // namespace desktop
