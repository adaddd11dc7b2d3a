// Every row of a review can be read: as it is painted, on light and on dark, selected or not.

#include "Desk.hpp"
#include "desktop/dialogs/RowListView.hpp"
#include "desktop/dialogs/RowLook.hpp"

#include <QAbstractItemModel>
#include <QImage>
#include <algorithm>
#include <map>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using desktop::RowListView;

constexpr double Readable = 4.5;  // AA of WCAG

/// Done, not as asked, refused, nothing to do.
const char* const EveryKind =
    "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tName\t\tNorth wall\n"
    "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tIsExternal[WallCommon]\t\tfalse\n"
    "62A7271B-EF91-58F6-9E04-FE7C35B4479E\tPredefinedType\t\tCEILING\n"
    "A32931C7-B3B2-4117-8D6A-3038DD4E9A78\tName\t\tHaust\xC3\xBCr\n";

/// The strongest colour of a cell against the one that it is filled with.
double contrastOf(RowListView& list, int row, int column) {
    const QImage picture = list.viewport()->grab(list.visualRect(list.model()->index(row, column))).toImage();
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    double best = 1;
    for (const auto& [color, count] : counts)
        best = std::max(best, desktop::contrast(QColor(color), QColor(most->first)));
    return best;
}

void expectReadable(AddOnDialog& dialog, const char* what) {
    RowListView& list = listOf(dialog);
    constexpr int ElementColumn = 1, PropertyColumn = 4, NewColumn = 6;
    for (const bool selected : {false, true}) {
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            list.clearSelection();
            list.scrollTo(list.model()->index(row, PropertyColumn));
            if (selected) list.selectRow(row);
            QCoreApplication::processEvents();
            // One colour for the row; of short thin texts no point may have the whole of it.
            double best = 1;
            for (const int column : {ElementColumn, PropertyColumn, NewColumn})
                best = std::max(best, contrastOf(list, row, column));
            EXPECT_GE(best, Readable) << what << (selected ? ", selected, row " : ", row ") << row + 1;
        }
    }
}

}  // namespace

class RowContrast : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
};

TEST_F(RowContrast, IsEnoughOnLightAndDarkSelectedAndDisabled) {
    review(EveryKind, [](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
        expectReadable(dialog, "light");
        QPalette dark = dialog.palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            dark.setColor(group, QPalette::Base, QColor(30, 31, 33));
            dark.setColor(group, QPalette::AlternateBase, QColor(38, 39, 42));
            dark.setColor(group, QPalette::Text, QColor(230, 230, 230));
            dark.setColor(group, QPalette::Highlight, QColor(42, 110, 170));
            dark.setColor(group, QPalette::HighlightedText, Qt::white);
        }
        listOf(dialog).setPalette(dark);
        QCoreApplication::processEvents();
        expectReadable(dialog, "dark");
    });
}

TEST_F(RowContrast, OfSelectionsIsEnoughEverywhere) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QPalette colours = QApplication::palette();
        EXPECT_GE(desktop::contrast(colours.color(group, QPalette::Highlight),
                                    colours.color(group, QPalette::HighlightedText)),
                  Readable);
    }
}

}  // namespace desktop_tests
