#pragma once

#include <QObject>

namespace desktop {

/// Whether a command, an opening or a saving is under way. The windows stay alive meanwhile, but nothing else may be
/// started that changes, replaces or closes the model.
class Busy : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    bool active() const { return depth_ > 0; }

    /// Busy as long as one lives.
    class Guard {
    public:
        explicit Guard(Busy& busy) : busy_(busy) { busy_.change(+1); }
        ~Guard() { busy_.change(-1); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

    private:
        Busy& busy_;
    };

Q_SIGNALS:
    void changed();

private:
    void change(int by) {
        const bool before = active();
        depth_ += by;
        if (active() != before) Q_EMIT changed();
    }
    int depth_ = 0;
};

}  // namespace desktop
