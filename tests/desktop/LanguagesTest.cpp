// The window in another language: every text that people see goes through the translation, and German has its keys.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/HintBar.hpp"
#include "desktop/elements/ElementPanel.hpp"
#include "desktop/elements/InspectorPanel.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "desktop/report/ReportPanel.hpp"
#include "desktop/review/ReviewBar.hpp"
#include "support/Places.hpp"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>
#include <QTableView>
#include <QToolButton>
#include <QTranslator>
#include <QTreeWidget>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";

/// A language in which each text of the program stands in marks, so that one that was never asked for has none.
class Marking : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override {
        const bool ours = QByteArray(context).startsWith("desktop::") || QByteArray(context) == "Counts";
        return ours ? QStringLiteral("«%1»").arg(QString::fromUtf8(text)) : QString();
    }
};

/// Texts of Qt's, of the add-on, of files and of the model are not the program's own.
bool isForeign(const QString& text) {
    static const QStringList names{QStringLiteral("Model Host"), QStringLiteral("+"), QStringLiteral("−"),
                                   QStringLiteral("&Quillmarsh")};
    const bool hasLetters = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    return !hasLetters || names.contains(text) || text.startsWith(QStringLiteral("IFC4"));
}

void expectMarked(const QString& text, const char* what) {
    if (isForeign(text)) return;
    EXPECT_TRUE(text.contains(u'«')) << what << ": " << text.toStdString();
}

/// The names of what can be read, clicked or filled in, in one window.
void expectAllMarked(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        // Qt's own parts, and the add-on's items.
        const bool foreign = name.startsWith(QStringLiteral("qt_")) || name.startsWith(QStringLiteral("item"));
        if (foreign || !widget->isVisible()) continue;
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && name != QStringLiteral("elementHeading"))
            expectMarked(label->text(), "label");
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            const auto* tool = qobject_cast<const QToolButton*>(widget);
            if (!tool || !tool->defaultAction() || tool->defaultAction()->objectName().isEmpty())
                expectMarked(button->text(), "button");
        }
        if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
            expectMarked(edit->placeholderText(), "placeholder");
        if (const auto* dock = qobject_cast<const QDockWidget*>(widget); dock && name != QStringLiteral("reviewDock"))
            expectMarked(dock->windowTitle(), "dock");
    }
}

}  // namespace

class Languages : public Desk {
protected:
    /// Until the test ends.
    void speak(QTranslator& language) {
        QCoreApplication::installTranslator(&language);
        spoken_ = &language;
        start();
    }
    void TearDown() override {
        Desk::TearDown();
        if (spoken_) QCoreApplication::removeTranslator(spoken_);
    }
    QList<QMenu*> menus() {
        QList<QMenu*> found;
        for (QAction* title : window().menuBar()->actions()) {
            Q_EMIT title->menu()->aboutToShow();
            found += title->menu();
        }
        return found;
    }

private:
    QTranslator* spoken_ = nullptr;
};

TEST_F(Languages, EveryTextOfTheWindowGoesThroughTheTranslation) {
    Marking marking;
    speak(marking);
    expectAllMarked(window());
    openSample();
    window().elements().select(*window().document().model()->find(*desktop::guidFromText(desktop::toQString(Wall))));
    expectAllMarked(window());
    for (const QAction* title : window().menuBar()->actions()) expectMarked(title->text(), "menu");
    for (const QMenu* menu : menus()) {
        if (menu->title() == QStringLiteral("&Quillmarsh")) continue;
        for (const QAction* action : menu->actions()) {
            expectMarked(action->text(), "item");
            expectMarked(action->statusTip(), "prompt");
        }
    }
    const auto* header = window().elements().table()->model();
    for (int column = 0; column < header->columnCount(); ++column)
        expectMarked(header->headerData(column, Qt::Horizontal).toString(), "column");
    const QTreeWidget& data = *window().inspector().tree();
    expectMarked(data.headerItem()->text(0), "column");
    expectMarked(data.topLevelItem(0)->text(0), "group");
}

TEST_F(Languages, EveryTextAroundAReviewGoesThroughTheTranslation) {
    Marking marking;
    speak(marking);
    openSample();
    const auto file = folder_.write("updates.txt", Wall + "\tName\t\tNorth wall\n");
    whenShown<AddOnDialog>(QStringLiteral("dialog32501"), [this](AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
        expectAllMarked(window());
        auto& bar = *dialog.findChild<desktop::ReviewBar*>(QStringLiteral("reviewBar"));
        for (int i = 0; i < bar.choice()->count(); ++i) expectMarked(bar.choice()->itemText(i), "choice");
        press(dialog, Qt::Key_Escape);
    });
    window().openFile(desktop::pathText(file));
}

TEST_F(Languages, GermanIsBuiltInAndItsMenusHaveKeysOfTheirOwn) {
    QTranslator german;
    ASSERT_TRUE(german.load(QStringLiteral(":/languages/modelhost_de.qm")));
    speak(german);
    openSample();
    EXPECT_EQ(window().menuBar()->actions().first()->text(), QStringLiteral("&Datei"));
    const auto key = [](const QAction* action) {
        return action->text().mid(action->text().indexOf(u'&') + 1, 1).toLower();
    };
    const auto check = [&](const QList<QAction*>& actions) {
        QSet<QString> keys;
        for (const QAction* action : actions) {
            if (action->isSeparator() || !action->isVisible()) continue;
            EXPECT_TRUE(action->text().contains(u'&')) << action->text().toStdString();
            EXPECT_FALSE(keys.contains(key(action))) << action->text().toStdString();
            keys += key(action);
        }
    };
    check(window().menuBar()->actions());
    for (const QMenu* menu : menus()) check(menu->actions());
    const QString count = window().findChild<QLabel*>(QStringLiteral("elementCount"))->text();
    EXPECT_TRUE(count.contains(QStringLiteral(" Elemente · "))) << count.toStdString();
}

TEST_F(Languages, NumbersInFilesKeepTheirPoint) {
    QTranslator german;
    ASSERT_TRUE(german.load(QStringLiteral(":/languages/modelhost_de.qm")));
    speak(german);
    openSample();
    whenShown<AddOnDialog>(QStringLiteral("dialog32501"), [](AddOnDialog& dialog) {
        clickCell(dialog, 1, 1);
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
        press(dialog, Qt::Key_Escape);
    });
    const std::string lamp = "91D2D0BC";
    const std::string all = bytesOf(testing_support::projectFile("samples/updates.txt"));
    const std::size_t begin = all.find(lamp);
    ASSERT_NE(begin, std::string::npos);
    window().openFile(
        desktop::pathText(folder_.write("lamp.txt", all.substr(begin, all.find('\n', begin) + 1 - begin))));
    EXPECT_SOON(window().document().modified());
    EXPECT_THAT(window().document().model()->bytes(), testing::HasSubstr("(9.5)"));
}

/// What the model, the update file and the add-on's refusals give rise to is said below the window.
class GermanFromBelow : public Languages {
protected:
    void SetUp() override {
        Languages::SetUp();
        if (IsSkipped()) return;
        ASSERT_TRUE(german_.load(QStringLiteral(":/languages/modelhost_de.qm")));
        speak(german_);
    }
    std::string reportLines() { return window().report().lines().join(u'\n').toStdString(); }
    static std::string hints(AddOnDialog& dialog) { return dialog.hintBar()->hints().join(u'\n').toStdString(); }
    static void applyAll(AddOnDialog& dialog) {
        clickItem(dialog, SelectAllItem);
        clickItem(dialog, ApplyItem);
    }
    /// The report of the review that is open, under this name.
    std::string reportOf(AddOnDialog& dialog, const std::string& name) {
        const auto path = folder_.path() / name;
        whenShown<QFileDialog>(QStringLiteral("reportDialog"), [path](QFileDialog& names) {
            auto* field = names.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            field->setFocus();
            field->selectAll();
            type(names, desktop::pathText(path));
            press(names, Qt::Key_Return);
        });
        click(*dialog.findChild<desktop::ReviewBar*>(QStringLiteral("reviewBar"))->reportButton());
        return std::filesystem::exists(path) ? bytesOf(path) : std::string();
    }

    const std::string slab_ = "62A7271B-EF91-58F6-9E04-FE7C35B4479E";

private:
    QTranslator german_;
};

TEST_F(GermanFromBelow, FileThatIsNoModelIsRefusedWithAGermanReason) {
    const auto path = folder_.write("letter.ifc", "Sehr geehrte Damen und Herren\n");
    const auto text = answer(QStringLiteral("errorMessage"), QMessageBox::Ok);
    EXPECT_FALSE(window().openFile(desktop::pathText(path)));
    EXPECT_THAT(text->toStdString(), HasSubstr("ie Datei beginnt nicht mit ISO-10303-21"));
    EXPECT_THAT(text->toStdString(), Not(HasSubstr("it does not begin")));
}

TEST_F(GermanFromBelow, DamagedFileIsOpenedWithGermanRemarks) {
    std::string bytes = bytesOf(testing_support::projectFile("samples/house.ifc"));
    bytes.resize(bytes.rfind("ENDSEC"));
    openFile(folder_.write("cut.ifc", bytes));
    EXPECT_THAT(reportLines(), AllOf(HasSubstr("die Datei ist nicht vollständig: ENDSEC und END-ISO-10303-21 fehlen"),
                                     Not(HasSubstr("not complete"))));
}

TEST_F(GermanFromBelow, HintsOnAnUpdateFileAndItsNamesAreGerman) {
    openSample();
    review(Wall + "\tFireRatin[WallCommon]\t\tF 30\n00000000-0000-0000-0000-00000000ABCD\tName\t\tx\n",
           [](AddOnDialog& dialog) {
               EXPECT_THAT(hints(dialog),
                           AllOf(HasSubstr("1 Zeile ergab keine Listenzeile; kein Element hat die GUID in Zeile 2"),
                                 HasSubstr("die Elementtabelle zeigt sie"),
                                 HasSubstr("Listenzeile 1: FireRatin[WallCommon] ist beinahe FireRating aus "
                                           "Pset_WallCommon des Standards: schreiben Sie FireRating[WallCommon]")));
           });
}

TEST_F(GermanFromBelow, RefusedRowBearsItsGermanReason) {
    openSample();
    review(slab_ + "\tPredefinedType\t\tCEILING\n", [](AddOnDialog& dialog) {
        applyAll(dialog);
        EXPECT_THAT(cell(dialog, 1, 8).toStdString(),
                    HasSubstr("error! – \"CEILING\" steht nicht in der Aufzählung IfcSlabTypeEnum (FLOOR, "));
    });
    EXPECT_THAT(reportLines(),
                AllOf(HasSubstr(slab_ + "), PredefinedType: \"CEILING\" steht nicht"), HasSubstr("(APIERR_BADVALUE)")));
}

TEST_F(GermanFromBelow, RowStoredOtherwiseSaysSoInGermanAndItsStepHasAGermanName) {
    openSample();
    review(Wall + "\tIsExternal[WallCommon]\t\tfalse\n", [](AddOnDialog& dialog) {
        applyAll(dialog);
        EXPECT_EQ(cell(dialog, 1, 8).toStdString(), "Done – verlangt „false“, gespeichert „true“");
        click(*dialog.findChild<desktop::ReviewBar*>(QStringLiteral("reviewBar"))->storeButton());
    });
    EXPECT_EQ(window().document().model()->undoSteps().undo, "Wie verlangt speichern");
}

TEST_F(GermanFromBelow, TypesHaveTheSameGermanNamesInTheTableTheElementsDataAndTheReview) {
    openSample();
    desktop::ElementPanel& elements = window().elements();
    const QAbstractItemModel& table = *elements.table()->model();
    elements.filterField()->setText(QStringLiteral("decke bodenplatte"));
    EXPECT_SOON(table.rowCount() == 1);
    EXPECT_EQ(table.index(0, 1).data().toString(), QStringLiteral("Decke"));
    elements.filterField()->clear();
    elements.select(*window().document().model()->find(*desktop::guidFromText(desktop::toQString(Wall))));
    EXPECT_EQ(window().inspector().findChild<QLabel*>(QStringLiteral("elementHeading"))->text(),
              QStringLiteral("Außenwand Süd – Wand"));
    review(Wall + "\tName\t\tNordwand\n",
           [](AddOnDialog& dialog) { EXPECT_EQ(cell(dialog, 1, 3), QStringLiteral("Wand")); });
}

TEST_F(GermanFromBelow, ReportsAreGermanButForTheNamesInJson) {
    openSample();
    review(Wall + "\tName\t\tNordwand\n" + slab_ + "\tPredefinedType\t\tCEILING\n", [this](AddOnDialog& dialog) {
        applyAll(dialog);
        EXPECT_THAT(reportOf(dialog, "changes.html"),
                    AllOf(HasSubstr("<html lang=\"de\">"), HasSubstr("<h1>Änderungen an house.ifc</h1>"),
                          HasSubstr("<h3>Wand <span>1</span></h3>"),
                          HasSubstr("<b>1</b> <span>wie verlangt geändert</span>"), HasSubstr("<h2>Verlangt und nicht"),
                          HasSubstr("Abgelehnt: &quot;CEILING&quot; steht nicht in der Aufzählung")));
        EXPECT_THAT(reportOf(dialog, "changes.json"),
                    AllOf(HasSubstr("\"facts\":{\"Model\":"), HasSubstr("\"changed as asked\":1"),
                          HasSubstr("\"type\":\"Wall\""), HasSubstr("\"remark\":\"Abgelehnt: ")));
    });
}

}  // namespace desktop_tests
