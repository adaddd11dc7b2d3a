#pragma once

#include <QTimer>
#include <QWidget>
#include <string>

class QPlainTextEdit;

namespace desktop {

/// The debug output of host and add-on. An import writes hundreds of thousands of short texts; so they are only put
/// together at first, and shown a few times a second and only while somebody looks.
class DebugPanel : public QWidget {
    Q_OBJECT

public:
    explicit DebugPanel(QWidget* parent = nullptr);

    void append(const char* text);
    QString text() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void flush();

    QPlainTextEdit* view_;
    QTimer timer_;
    std::string pending_;
};

}  // namespace desktop
