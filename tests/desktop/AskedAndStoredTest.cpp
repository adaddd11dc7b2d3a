// What the window says of applied rows for which the model holds something else than was asked.

#include "Desk.hpp"
#include "desktop/QtText.hpp"
#include "desktop/dialogs/HintBar.hpp"
#include "desktop/review/ReviewBar.hpp"

#include <QPushButton>

namespace desktop_tests {

namespace {

using desktop::AddOnDialog;
using testing::HasSubstr;
using testing::Not;

const std::string Wall = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
const std::string Slab = "62A7271B-EF91-58F6-9E04-FE7C35B4479E";

std::string line(const std::string& guid, const std::string& item, const std::string& old, const std::string& value) {
    return guid + "\t" + item + "\t" + old + "\t" + value + "\n";
}

desktop::ReviewBar& barOf(AddOnDialog& dialog) {
    return *dialog.findChild<desktop::ReviewBar*>(QStringLiteral("reviewBar"));
}

void applyAll(AddOnDialog& dialog) {
    clickItem(dialog, SelectAllItem);
    clickItem(dialog, ApplyItem);
}

std::string remark(AddOnDialog& dialog, int row) {
    return cell(dialog, row, 8).toStdString();
}

}  // namespace

class AskedAndStored : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (!IsSkipped()) openSample();
    }
    std::string property(const std::string& guid, std::u16string_view set, std::u16string_view name) {
        const model::Model& model = *window().document().model();
        std::string found = "none";
        model.visitProperties(*model.find(*desktop::guidFromText(desktop::toQString(guid))),
                              [&](const model::PropertyView& property) {
                                  if (property.set != set || property.name != name) return;
                                  found = property.primitive == model::Primitive::Boolean
                                              ? (property.boolean ? "true" : "false")
                                              : desktop::toQString(property.string).toStdString();
                              });
        return found;
    }
};

TEST_F(AskedAndStored, RowThatHoldsSomethingElseSaysBothAfterApply) {
    review(line(Wall, "IsExternal[WallCommon]", "", "false") + line(Wall, "Name", "", "North wall"),
           [](AddOnDialog& dialog) {
               EXPECT_THAT(remark(dialog, 1), Not(HasSubstr("asked")));
               applyAll(dialog);
               EXPECT_EQ(remark(dialog, 1), "Done – asked 'false', stored 'true'");
               EXPECT_EQ(remark(dialog, 2), "Done");
               EXPECT_THAT(barOf(dialog).totals().toStdString(), HasSubstr("2 done · 1 not as asked"));
           });
}

TEST_F(AskedAndStored, StoreAsAskedWritesItAsAStepOfItsOwn) {
    review(line(Wall, "IsExternal[WallCommon]", "", "false") + line(Wall, "Name", "", "North wall"),
           [this](AddOnDialog& dialog) {
               EXPECT_FALSE(barOf(dialog).storeButton()->isEnabled());
               applyAll(dialog);
               EXPECT_EQ(property(Wall, u"Pset_WallCommon", u"IsExternal"), "true");
               EXPECT_EQ(barOf(dialog).storeButton()->text(), QStringLiteral("Store 1 as Asked"));
               click(*barOf(dialog).storeButton());
               EXPECT_EQ(property(Wall, u"Pset_WallCommon", u"IsExternal"), "false");
               EXPECT_EQ(remark(dialog, 1), "Done – stored as asked");
               EXPECT_FALSE(barOf(dialog).storeButton()->isEnabled());
               EXPECT_THAT(barOf(dialog).totals().toStdString(), Not(HasSubstr("not as asked")));
           });
    pick(QStringLiteral("Edit"), QStringLiteral("Undo Store as asked"));
    EXPECT_EQ(property(Wall, u"Pset_WallCommon", u"IsExternal"), "true");
    EXPECT_EQ(window().document().model()->undoSteps().undo, "Apply Quillmarsh updates");
}

TEST_F(AskedAndStored, RefusedRowBearsItsReason) {
    review(line(Slab, "PredefinedType", "", "CEILING") + line(Slab, "Name", "", "Decke"), [](AddOnDialog& dialog) {
        applyAll(dialog);
        EXPECT_THAT(remark(dialog, 1), HasSubstr("error! – \"CEILING\" is no item of IfcSlabTypeEnum"));
        EXPECT_EQ(remark(dialog, 2), "Done");
        EXPECT_THAT(barOf(dialog).totals().toStdString(), HasSubstr("1 done · 1 error"));
    });
}

TEST_F(AskedAndStored, OldValueThatTheModelDoesNotHoldIsAConflict) {
    review(line(Wall, "FireRating[WallCommon]", "F 30", "F 120-AB"), [](AddOnDialog& dialog) {
        EXPECT_THAT(remark(dialog, 1), HasSubstr("the file says it was 'F 30'"));
        EXPECT_THAT(barOf(dialog).totals().toStdString(), HasSubstr("1 conflict"));
    });
    review(line(Wall, "FireRating[WallCommon]", "F 90-AB", "F 120-AB"), [](AddOnDialog& dialog) {
        EXPECT_THAT(remark(dialog, 1), Not(HasSubstr("the file says")));
        EXPECT_THAT(barOf(dialog).totals().toStdString(), Not(HasSubstr("conflict")));
    });
}

TEST_F(AskedAndStored, NameThatIsNearlyTheStandardsIsHintedAt) {
    review(line(Wall, "FireRatng[WallCommon]", "", "F 90"), [](AddOnDialog& dialog) {
        EXPECT_THAT(dialog.hintBar()->hints().join(u'\n').toStdString(), HasSubstr("FireRating[WallCommon]"));
    });
}

TEST_F(AskedAndStored, NameWithoutSetThatNothingHasIsHintedAtAfterApply) {
    review(line(Wall, "Slopy", "", "3"), [](AddOnDialog& dialog) {
        applyAll(dialog);
        EXPECT_THAT(dialog.hintBar()->hints().join(u'\n').toStdString(),
                    HasSubstr("write a set behind it, as in Slopy[Custom]"));
    });
}

}  // namespace desktop_tests
