#pragma once

#include <QToolBar>

class QLabel;

namespace desktop {

/// Says, as long as it is so, that another program has the file open and that this one can only save it under another
/// name.
class ReadOnlyBar : public QToolBar {
    Q_OBJECT

public:
    explicit ReadOnlyBar(QWidget* parent = nullptr);

    /// @param holder  the other program; empty hides the bar.
    void show(const QString& holder);
    QString text() const;

Q_SIGNALS:
    void saveAsWanted();
    /// The user thinks that the other program is through with the file.
    void reopeningWanted();

private:
    QLabel* label_;
};

}  // namespace desktop
