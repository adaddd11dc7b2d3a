#pragma once

#include <QWidget>

class QListWidget;

namespace desktop {

/// What the host reports while it works: refusals, alerts, remarks about the file. The newest line is in sight.
class ReportPanel : public QWidget {
    Q_OBJECT

public:
    explicit ReportPanel(QWidget* parent = nullptr);

    void append(const QString& text, bool alert);
    void clear();
    QStringList lines() const;

Q_SIGNALS:
    /// The number of lines; for the dock's title.
    void countChanged(int count);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QListWidget* list_;
};

}  // namespace desktop
