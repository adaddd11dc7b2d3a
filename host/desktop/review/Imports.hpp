#pragma once

#include "desktop/review/PickedUpdates.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <optional>

class QMainWindow;

namespace desktop {

class AddOnMenu;
class DesktopView;
class ReportPanel;

/// Carries a file of updates from the user's choice to the last of its lists: reads it before the add-on does, says how
/// it was understood, and runs the add-on's command again for each further list.
class Imports : public QObject {
    Q_OBJECT

public:
    Imports(QMainWindow* window, Document& document, DesktopView& view, AddOnMenu& menu, ReportPanel& report);

    /// Runs the add-on's import with a file that is known already.
    void begin(const QString& path);

    /// The file whose list the add-on is showing, or about to show; null where it runs for something else.
    PickedUpdates* current() { return picked_ ? &*picked_ : nullptr; }

private:
    std::optional<std::string> take(const QString& path);
    void refuse(const QString& path, const QString& why);
    void commandEnded();
    bool mayGoOn();

    QMainWindow* window_;
    Document& document_;
    DesktopView& view_;
    AddOnMenu& menu_;
    ReportPanel& report_;
    std::optional<PickedUpdates> picked_;
    bool nextList_ = false;  ///< The add-on's next request for a file is answered with the list that is next.
};

}  // namespace desktop
