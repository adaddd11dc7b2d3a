#pragma once
// What the user should know of an update file: the hints, and the bar that shows them.

#include "frameworks/FrontEnd.hpp"
#include "model/Model.hpp"

#include <QFrame>
#include <QStringList>
#include <string>

class QPlainTextEdit;
class QToolButton;

namespace desktop {

/// What the add-on passes over in silence in the update file that the user has picked, in words. Empty where there is
/// nothing to say, or where the dialog shows no review of updates: a list of eight columns.
QStringList hintsAbout(const std::string& file, const frontend::Dialog& dialog, const model::Model& model);

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
