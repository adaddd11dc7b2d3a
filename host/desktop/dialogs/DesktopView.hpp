#pragma once

#include "frameworks/FrontEnd.hpp"

#include <QObject>
#include <map>

class QWidget;

namespace desktop {

class AddOnDialog;

/// The front end in charge while it lives: shows the add-on's dialogs and asks for files, over one window.
class DesktopView : public QObject, public frontend::View {
    Q_OBJECT

public:
    /// @param keepFree  what the dialogs should leave in sight where the screen has room for both.
    DesktopView(QWidget* window, QWidget* keepFree);
    ~DesktopView() override;

    void runModal(frontend::Dialog& dialog) override;
    std::optional<std::string> pickFile(const frontend::FileRequest& request) override;
    void changed(frontend::Dialog& dialog, Int16 item) override;

    /// The innermost dialog that is open, or null.
    AddOnDialog* current() const;

    /// The file that the user has picked for the add-on since the last call.
    std::optional<std::string> takePickedFile();

Q_SIGNALS:
    void dialogOpened(desktop::AddOnDialog* dialog);
    void dialogClosed();

private:
    void place(AddOnDialog& dialog) const;

    QWidget *window_, *keepFree_;
    std::map<frontend::Dialog*, AddOnDialog*> open_;
    frontend::View* previous_;
    std::optional<std::string> picked_;
};

}  // namespace desktop
