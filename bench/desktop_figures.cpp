// How the desktop program does with a big model and a full list: time to open, filter, sort, draw, review and tick, and
// the memory at the end of each step. Prints one line a figure: wall time, processor
// time, resident memory.
//
// usage: desktop_figures MODEL.ifc BUNDLE     on an X server, for example below xvfb-run

#include "desktop/Application.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/dialogs/RowListView.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/window/AddOnMenu.hpp"
#include "desktop/window/MainWindow.hpp"

#include <QAction>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <optional>

namespace {

long residentMegabytes() {
    std::ifstream status("/proc/self/status");
    std::string word;
    long kilobytes = 0;
    while (status >> word) {
        if (word == "VmRSS:") status >> kilobytes;
    }
    return kilobytes / 1024;
}

void printFigure(const char* what, double wallMs, double processorMs) {
    std::printf("%-46s %8.1f ms %8.1f ms %6ld MB\n", what, wallMs, processorMs, residentMegabytes());
    std::fflush(stdout);
}

/// Wall time and this process's processor time until now.
class Stopwatch {
public:
    Stopwatch() { clock.start(); }
    void print(const char* what) const {
        printFigure(what, static_cast<double>(clock.nsecsElapsed()) / 1e6,
                    1000.0 * static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC);
    }

private:
    QElapsedTimer clock;
    std::clock_t processor = std::clock();
};

/// Time until the work is done and what it changed is on the screen.
void measure(const char* what, const std::function<void()>& work) {
    const Stopwatch clock;
    work();
    QCoreApplication::processEvents();
    clock.print(what);
}

/// A window of this kind, or a dialog that is a part of one, as the review is.
template <class Window>
Window* shown() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<Window*>(widget);
        if (window && window->isVisible()) return window;
        auto* part = widget->findChild<Window*>();
        if (part && part->isVisible()) return part;
    }
    return nullptr;
}

template <class Window>
void whenShown(std::function<void(Window&)> act) {
    QTimer::singleShot(1, qApp, [act] {
        if (auto* window = shown<Window>()) {
            act(*window);
        } else {
            whenShown(act);
        }
    });
}

void measureTable(desktop::MainWindow& window) {
    QTableView& table = *window.elements().table();
    QLineEdit& filter = *window.elements().filterField();
    measure("filter: first letter", [&] { filter.setText(QStringLiteral("w")); });
    measure("filter: a word", [&] { filter.setText(QStringLiteral("wand")); });
    measure("filter: two words", [&] { filter.setText(QStringLiteral("wand erd")); });
    measure("filter: a part of a GUID", [&] { filter.setText(QStringLiteral("4b77f0f7")); });
    measure("filter: none again", [&] { filter.clear(); });
    measure("sort by name",
            [&] { table.sortByColumn(static_cast<int>(desktop::ElementColumn::Name), Qt::AscendingOrder); });
    measure("sort by GUID",
            [&] { table.sortByColumn(static_cast<int>(desktop::ElementColumn::Guid), Qt::AscendingOrder); });
    measure("scroll to the end", [&] { table.verticalScrollBar()->setValue(table.verticalScrollBar()->maximum()); });
}

void measureReview(desktop::MainWindow& window, const QString& updates) {
    std::optional<Stopwatch> clock;
    whenShown<QFileDialog>([&](QFileDialog& dialog) {
        whenShown<desktop::AddOnDialog>([&](desktop::AddOnDialog& review) {
            QCoreApplication::processEvents();
            clock->print("review: from the file's choice to the dialog");
            desktop::RowListView& list = *review.list(5);
            const auto click = [&](Int16 item) { qobject_cast<QPushButton*>(review.itemWidget(item))->click(); };
            std::printf("%-46s %8d\n", "review: rows", list.model()->rowCount());
            measure("review: tick all", [&] { click(3); });
            measure("review: untick all", [&] { click(4); });
            measure("review: scroll to the end",
                    [&] { list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum()); });
            measure("review: tick one row", [&] { Q_EMIT list.rowClicked(32767, 5); });
            measure("review: find a text in the last row", [&] { list.keyboardSearch(QStringLiteral("value 32766")); });
            measure("review: tick all again", [&] { click(3); });
            measure("review: apply all", [&] { click(1); });
            click(2);
        });
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(updates);
        clock.emplace();
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    window.addOnMenu().action(32500, 1)->trigger();
    measure("undo", [&] { window.document().undo(); });
}

/// Lines for as many elements as a list has rows.
QString writeUpdates(const desktop::ElementIndex& index, const QString& folder) {
    const QString path = folder + QStringLiteral("/updates.txt");
    std::ofstream file(desktop::toPath(path));
    for (int i = 0; i < DG_LIST_MAX_ROWS; ++i) {
        const auto element = static_cast<model::Element>(i) % index.size();
        file << desktop::guidText(index.guid(element)).toStdString() << "\tDescription\t\tvalue " << i << '\n';
    }
    return path;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: desktop_figures MODEL.ifc BUNDLE\n", stderr);
        return 1;
    }
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    desktop::Application application(argc, argv);
    desktop::MainWindow window;
    window.show();
    if (!window.loadAddOn(argv[2])) return 1;
    measure("the window", [] {});
    measure("open", [&] { window.openFile(QString::fromLocal8Bit(argv[1])); });
    if (!window.document().isOpen()) return 1;
    std::printf("%-46s %8u\n", "elements", window.document().index()->size());
    measureTable(window);
    measure("plan: all footprints of a storey", [&] {
        while (!window.plan().view()->complete()) QCoreApplication::processEvents();
    });
    measure("plan: draw it anew", [&] {
        window.plan().view()->zoomBy(1.0);
        window.plan().view()->fit();
    });
    measureReview(window, writeUpdates(*window.document().index(), folder.path()));
    return 0;
}
