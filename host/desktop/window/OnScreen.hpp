#pragma once

#include <QObject>

class QMessageBox;
class QWidget;

namespace desktop {

/// Keeps dialogs within the screen when they come up, those of Qt too, which are made for large screens: they get as
/// large as there is room, and messages of a length that no screen has room for keep their beginning and have the rest
/// behind a button.
class OnScreen : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// So many characters of a message, or of what it says further, are always shown.
    static constexpr int LongestText = 350;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace desktop
