#pragma once

#include <QFrame>
#include <QStringList>

class QPlainTextEdit;
class QToolButton;

namespace desktop {

/// What the user should know of the file behind a dialog's list, at the window's lower edge, below the add-on's items.
/// One line when folded.
class HintBar : public QFrame {
    Q_OBJECT

public:
    explicit HintBar(QWidget* parent);

    void setHints(const QString& file, const QStringList& hints);
    QStringList hints() const;
    QToolButton* button() const { return title_; }

Q_SIGNALS:
    /// It needs another height.
    void folded();

private:
    QToolButton* title_;
    QPlainTextEdit* text_;
};

}  // namespace desktop
