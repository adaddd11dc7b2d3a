#pragma once

#include "frameworks/FrontEnd.hpp"

#include <QObject>
#include <QString>
#include <functional>
#include <map>
#include <optional>

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

    /// Told of the file that the user has picked where the add-on asks for an update file. @return what the add-on gets
    /// in its place; nothing: as if the user had cancelled.
    using UpdatesReader = std::function<std::optional<std::string>(const QString& path)>;
    void setUpdatesReader(UpdatesReader reader) { updatesReader_ = std::move(reader); }
    /// The add-on's next request for an update file goes to the reader without the user being asked.
    void answerNextRequest(const QString& path = {}) { nextAnswer_ = path; }
    void forgetAnswer() { nextAnswer_.reset(); }
    /// Where the next question for a file begins: with the model, as a rule.
    void setFolder(const QString& folder) { folder_ = folder; }

Q_SIGNALS:
    void dialogOpened(desktop::AddOnDialog* dialog);
    void dialogClosed();

private:
    void place(AddOnDialog& dialog) const;
    std::optional<QString> askForFile(const frontend::FileRequest& request, bool updates);

    QWidget *window_, *keepFree_;
    std::map<frontend::Dialog*, AddOnDialog*> open_;
    frontend::View* previous_;
    UpdatesReader updatesReader_;
    std::optional<QString> nextAnswer_;
    QString folder_;
};

}  // namespace desktop
