// The plan on paper.

#include "PlanDesk.hpp"
#include "desktop/plan/PlanOutput.hpp"
#include "desktop/plan/PlanSheet.hpp"

#include <QFileDialog>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QSvgRenderer>
#include <QXmlStreamReader>

namespace desktop_tests {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class PlanOnPaper : public PlanDesk {
protected:
    std::filesystem::path target(const std::string& name) { return folder_.path() / name; }
    bool save(const std::string& name) { return window().planOutput().save(desktop::pathText(target(name))); }
    /// Prints from the menu into a file, whose name the user writes into the dialog.
    void print(
        const std::filesystem::path& file, const std::function<void()>& thereupon = [] {}) {
        whenShown<QPrintDialog>(QStringLiteral("printDialog"), [=](QPrintDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
            ASSERT_NE(name, nullptr);
            name->setText(desktop::pathText(file));
            QObject::connect(&dialog, &QDialog::accepted, thereupon);
            press(dialog, Qt::Key_Return);
        });
        pick(QStringLiteral("File"), QStringLiteral("Print Plan"));
    }
    /// The texts of a drawing, one after the other.
    QStringList textsOf(const std::string& name) {
        QXmlStreamReader reader(QByteArray::fromStdString(bytesOf(target(name))));
        QStringList texts;
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::Characters && !reader.isWhitespace()) {
                texts += reader.text().toString().trimmed();
            }
        }
        EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
        return texts;
    }
};

TEST_F(PlanOnPaper, DrawingHasStoreyFileScaleAndRooms) {
    ASSERT_TRUE(save("plan.svg"));
    const QStringList texts = textsOf("plan.svg");
    for (const char* text : {"Erdgeschoss", "house.ifc", "Scale 1:100", "001 Küche"}) {
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text << " in " << texts.join(u'|').toStdString();
    }
    EXPECT_TRUE(texts.contains(QStringLiteral("2 m"))) << "the scale bar";
    QSvgRenderer renderer(desktop::pathText(target("plan.svg")));
    EXPECT_TRUE(renderer.isValid());
    // The whole sheet lies across: the house is wider than it is deep, with what stands before it.
    EXPECT_NE(renderer.viewBox().width(), renderer.viewBox().height());
}

TEST_F(PlanOnPaper, PageIsOnePageOfPaper) {
    ASSERT_TRUE(save("plan.pdf"));
    const std::string bytes = bytesOf(target("plan.pdf"));
    EXPECT_THAT(bytes, StartsWith("%PDF-"));
    EXPECT_THAT(bytes, HasSubstr("/Count 1"));
    EXPECT_GT(bytes.size(), 5000U);
}

TEST_F(PlanOnPaper, IsWhatTheWindowShows) {
    pickLayer(desktop::PlanLayer::Rooms);
    ASSERT_TRUE(save("plan.svg"));
    EXPECT_FALSE(textsOf("plan.svg").contains(QStringLiteral("001 Küche")));
    for (int i = 0; i < choice().count(); ++i) {
        if (choice().itemText(i).startsWith(QStringLiteral("Obergeschoss"))) choice().setCurrentIndex(i);
    }
    ASSERT_TRUE(save("plan.svg")) << "what is not read yet is read";
    EXPECT_TRUE(textsOf("plan.svg").contains(QStringLiteral("Obergeschoss")));
}

TEST_F(PlanOnPaper, OfAPartIsAtALargerScale) {
    zoomTo({17, 13}, 400);
    ASSERT_TRUE(save("plan.svg"));
    const QStringList scales = textsOf("plan.svg").filter(QStringLiteral("Scale 1:"));
    ASSERT_EQ(scales.size(), 1);
    EXPECT_LT(scales[0].section(u':', 1).toInt(), 50) << "the whole storey is at 1:100";
}

TEST_F(PlanOnPaper, IsSavedFromTheMenuUnderTheStoreysName) {
    whenShown<QFileDialog>(QStringLiteral("planDialog"), [](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>();
        ASSERT_NE(name, nullptr);
        EXPECT_EQ(name->text(), QStringLiteral("house-Erdgeschoss"));
        press(dialog, Qt::Key_Return);
    });
    pick(QStringLiteral("File"), QStringLiteral("Save Plan As"));
    EXPECT_THAT(bytesOf(target("house-Erdgeschoss.pdf")), StartsWith("%PDF-"));
}

TEST_F(PlanOnPaper, SayWhatCannotBeWritten) {
    auto text = answer(QStringLiteral("planMessage"), QMessageBox::Ok);
    EXPECT_FALSE(save("plan.png"));
    EXPECT_THAT(text->toStdString(), HasSubstr("plan.png"));
    text = answer(QStringLiteral("planMessage"), QMessageBox::Ok);
    EXPECT_FALSE(save("no such folder/plan.svg"));
    EXPECT_THAT(text->toStdString(), HasSubstr("plan.svg could not be written"));
}

TEST_F(PlanOnPaper, IsPrinted) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(desktop::pathText(target("printed.pdf")));
    ASSERT_TRUE(window().planOutput().drawOn(printer));
    EXPECT_THAT(bytesOf(target("printed.pdf")), HasSubstr("/Count 1"));
}

TEST_F(PlanOnPaper, IsPrintedIntoAFileByTheDialogOfTheMenu) {
    print(target("printed.pdf"));
    EXPECT_THAT(bytesOf(target("printed.pdf")), AllOf(StartsWith("%PDF-"), HasSubstr("/Count 1")));
    EXPECT_THAT(window().statusBar()->currentMessage().toStdString(), HasSubstr("printed.pdf"));
}

TEST_F(PlanOnPaper, NotPrintedSaysWhy) {
    const auto gone = folder_.path() / "gone";
    std::filesystem::create_directory(gone);
    // The dialog has seen the folder, and then it is no longer there.
    const auto text = answer(QStringLiteral("planMessage"), QMessageBox::Ok);
    print(gone / "printed.pdf", [&] { std::filesystem::remove(gone); });
    EXPECT_EQ(text->toStdString(), "The plan could not be printed.\nprinted.pdf could not be written.");
}

TEST_F(PlanOnPaper, PrintedOntoAFullDiskSaysSo) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no disk that is always full";
    const auto text = answer(QStringLiteral("planMessage"), QMessageBox::Ok);
    const auto file = target("printed.pdf");
    print(file, [&] { std::filesystem::create_symlink("/dev/full", file); });
    EXPECT_THAT(text->toStdString(), HasSubstr("printed.pdf could not be written"));
}

TEST_F(PlanOnPaper, PrintingCanBeCancelled) {
    whenShown<QPrintDialog>(QStringLiteral("printDialog"), [](QPrintDialog& dialog) { press(dialog, Qt::Key_Escape); });
    pick(QStringLiteral("File"), QStringLiteral("Print Plan"));
    EXPECT_TRUE(window().statusBar()->currentMessage().isEmpty());
}

TEST_F(PlanOnPaper, IsOfferedWhileAModelIsOpen) {
    EXPECT_TRUE(menuItem(QStringLiteral("File"), QStringLiteral("Print Plan"))->isEnabled());
    pick(QStringLiteral("File"), QStringLiteral("Close"));
    EXPECT_FALSE(menuItem(QStringLiteral("File"), QStringLiteral("Print Plan"))->isEnabled());
    EXPECT_FALSE(menuItem(QStringLiteral("File"), QStringLiteral("Save Plan As"))->isEnabled());
}

TEST(SheetScale, IsTheNextRoundOne) {
    // 96 dots are an inch: 1000 dots are 0.264583 m.
    const std::vector<std::pair<double, double>> rows = {{0.2645, 1},     {0.265, 2}, {10, 50},  {13.22, 50},
                                                         {13.23, 50 * 2}, {26, 100},  {60, 250}, {100, 500},
                                                         {1e6, 5e6},      {0.02, 0.1}};
    for (const auto& [metres, scale] : rows) {
        EXPECT_NEAR(desktop::sheetScale({metres, metres / 2}, {1000, 1000}, 1), scale, scale * 1e-9) << metres;
        EXPECT_NEAR(desktop::sheetScale({metres * 1000, 0}, {1000, 1000}, 1e-3), scale, scale * 1e-9) << metres;
    }
    EXPECT_EQ(desktop::sheetScale({0, 0}, {1000, 1000}, 1), 0);
    EXPECT_EQ(desktop::sheetScale({1e308, 1e308}, {0.001, 1000}, 1e3), 0);
}

}  // namespace desktop_tests
