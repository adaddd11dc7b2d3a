// Edits change their own bytes and no others.

#include "step/StepText.hpp"

#include <functional>

namespace step_tests {
namespace {

using ::testing::HasSubstr;

struct Splice {
    const char* name;
    std::string before;
    std::string after;
    std::function<Status(Editing&)> edit;
};

std::ostream& operator<<(std::ostream& out, const Splice& splice) {
    return out << splice.before;
}

std::function<Status(Editing&)> replace(InstanceId id, std::size_t number, const char* text) {
    return [=](Editing& edit) { return edit.replace(id, number, text); };
}
std::function<Status(Editing&)> add(InstanceId id, std::size_t number, InstanceId member) {
    return [=](Editing& edit) { return edit.add(id, number, member); };
}
std::function<Status(Editing&)> erase(InstanceId id) {
    return [=](Editing& edit) { return edit.erase(id); };
}

class Splicing : public ::testing::TestWithParam<Splice> {};

TEST_P(Splicing, LeavesTheRestAsFound) {
    Editing edit(fileOf(GetParam().before));
    const Status done = GetParam().edit(edit);
    EXPECT_TRUE(done) << done.error().message;
    EXPECT_EQ(dataOf(edit.file->bytes()), GetParam().after);
}

TEST_P(Splicing, IsUndoneToTheByte) {
    Editing edit(fileOf(GetParam().before));
    EXPECT_TRUE(GetParam().edit(edit));
    EXPECT_TRUE(edit.file->modified());
    EXPECT_TRUE(edit.file->undo());
    EXPECT_EQ(dataOf(edit.file->bytes()), GetParam().before);
    EXPECT_FALSE(edit.file->modified());
    EXPECT_TRUE(edit.file->redo());
    EXPECT_EQ(dataOf(edit.file->bytes()), GetParam().after);
}

TEST_P(Splicing, IsReadBackFromTheSavedBytes) {
    Editing edit(fileOf(GetParam().before));
    EXPECT_TRUE(GetParam().edit(edit));
    EXPECT_EQ(instances(*opened(edit.file->bytes())), instances(*edit.file));
}

INSTANTIATE_TEST_SUITE_P(
    Values, Splicing,
    ::testing::Values(Splice{"OnlyTheValue", "#1 = A ( 'x' ,/*c*/ $ ) ;\r\n", "#1 = A ( 'x' ,/*c*/ 'new' ) ;\r\n",
                             replace(1, 1, "'new'")},
                      Splice{"OneOfSeveralOnALine", "#1=A('x');#2=A('y');#3=A('z');\n",
                             "#1=A('x');#2=A($);#3=A('z');\n", replace(2, 0, "$")},
                      Splice{"OverManyLines", "#1=A(\n  'x',\n  'y'\n);\n", "#1=A(\n  'x',\n  IFCLABEL('long')\n);\n",
                             replace(1, 1, "IFCLABEL('long')")},
                      Splice{"KeywordsCaseStays", "#1=IfcWall(.T.);\n", "#1=IfcWall(.F.);\n", replace(1, 0, ".F.")},
                      Splice{"LeadingZerosStay", "#0012=A(#003);\n", "#0012=A(#4);\n", replace(12, 0, "#4")},
                      Splice{"BrokenNeighbourStays", "#1=A('x;\n#2=B(1);\n", "#1=A('x;\n#2=B(2);\n",
                             replace(2, 0, "2")},
                      Splice{"UserDefinedKeyword", "#1=!MINE(1);\n", "#1=!MINE(2);\n", replace(1, 0, "2")}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Additions, Splicing,
    ::testing::Values(
        Splice{"ToAnEmptyList", "#1=A(());\n", "#1=A((#2));\n", add(1, 0, 2)},
        Splice{"ToAListOfOne", "#1=A((#2),$);\n", "#1=A((#2,#3),$);\n", add(1, 0, 3)},
        Splice{"WithTheBlanksOfItsNeighbours", "#1=A((#2, #3 ));\n", "#1=A((#2, #3, #4 ));\n", add(1, 0, 4)},
        Splice{"OnALineOfItsOwn", "#1=A((\n  #2,\n  #3\n));\n", "#1=A((\n  #2,\n  #3,\n  #4\n));\n", add(1, 0, 4)},
        Splice{"WithoutTheCommentsOfItsNeighbours", "#1=A((#2,/*c*/#3));\n", "#1=A((#2,/*c*/#3,#4));\n", add(1, 0, 4)},
        Splice{"ToAnEmptyListWithComment", "#1=A((/*none*/));\n", "#1=A((/*none*/#2));\n", add(1, 0, 2)}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Erasures, Splicing,
    ::testing::Values(Splice{"WithItsLine", "#1=A();\n#2=B();\n#3=C();\n", "#1=A();\n#3=C();\n", erase(2)},
                      Splice{"WithItsIndent", "#1=A();\r\n  #2=B();  \r\n#3=C();\r\n", "#1=A();\r\n#3=C();\r\n",
                             erase(2)},
                      Splice{"OnASharedLine", "#1=A(); #2=B(); #3=C();\n", "#1=A();  #3=C();\n", erase(2)},
                      Splice{"BesideAComment", "#1=A();\n#2=B(); /* two */\n", "#1=A();\n /* two */\n", erase(2)},
                      Splice{"OverManyLines", "#1=A();\n#2=B(\n1\n);\n", "#1=A();\n", erase(2)}),
    [](const auto& row) { return std::string(row.param.name); });

struct Refusal {
    const char* name;
    std::string data;
    std::function<Status(Editing&)> edit;
    const char* reason;
};

std::ostream& operator<<(std::ostream& out, const Refusal& refusal) {
    return out << refusal.data;
}

class Refused : public ::testing::TestWithParam<Refusal> {};

TEST_P(Refused, EditChangesNothing) {
    Editing edit(fileOf(GetParam().data));
    const Status done = GetParam().edit(edit);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().kind, ErrorKind::Refused);
    EXPECT_THAT(done.error().message, HasSubstr(GetParam().reason));
    EXPECT_EQ(dataOf(edit.file->bytes()), GetParam().data);
    EXPECT_FALSE(edit.file->undoSteps().undo.has_value());
}

Status editSlot(Editing& edit, Slot slot) {
    EXPECT_TRUE(edit.file->begin());
    Instance instance;
    Value value;
    if (edit.file->read(slot, instance) && !instance.arguments.empty()) value = instance.arguments[0];
    const Status done = edit.file->replaceValue(slot, value, "2");
    edit.file->commit("Edit");
    return done;
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, Refused,
    ::testing::Values(
        Refusal{"OfADerivedValue", "#1=A(*);\n", replace(1, 0, "1"), "derived"},
        Refusal{"OfAMalformedValue", "#1=A(abc);\n", replace(1, 0, "1"), "malformed in the file"},
        Refusal{"OfTwoValues", "#1=A(1);\n", replace(1, 0, "1,2"), "new value is malformed"},
        Refusal{"OfNoValue", "#1=A(1);\n", replace(1, 0, ""), "new value is malformed"},
        Refusal{"OfAnOpenString", "#1=A(1);\n", replace(1, 0, "'x"), "new value is malformed"},
        Refusal{"OfAnInstance", "#1=A(1);\n", replace(1, 0, "1);#2=B("), "new value is malformed"},
        Refusal{"OfAnOpenComment", "#1=A(1);\n", replace(1, 0, "1/*"), "new value is malformed"},
        Refusal{"OfAListThatIsNone", "#1=A(1);\n", add(1, 0, 2), "list is malformed"},
        Refusal{"OfAComplexInstance", "#1=(A(1)B(2));\n", [](Editing& edit) { return editSlot(edit, 0); }, "complex"},
        Refusal{"OfARepeatedId", "#1=A(1);\n#1=B(2);\n", [](Editing& edit) { return editSlot(edit, 1); }, "several"},
        Refusal{"OfAForeignSlot", "#1=A(1);\n", [](Editing& edit) { return editSlot(edit, 7); }, "no such instance"},
        Refusal{"OfNoSlot", "#1=A(1);\n", [](Editing& edit) { return editSlot(edit, NoSlot); }, "no such instance"},
        Refusal{"OfAnotherInstancesValue", "#1=A(1);\n#2=A(1);\n",
                [](Editing& edit) {
                    EXPECT_TRUE(edit.file->begin());
                    const Status done = edit.file->replaceValue(edit.file->find(1), argument(*edit.file, 2, 0), "2");
                    edit.file->commit("Edit");
                    return done;
                },
                "not one of this instance"},
        Refusal{
            "OutsideACommand", "#1=A(1);\n",
            [](Editing& edit) { return edit.file->replaceValue(edit.file->find(1), argument(*edit.file, 1, 0), "2"); },
            "inside a command"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ErasedInstance, IsGone) {
    Editing edit(fileOf("#1=A(1);\n#2=B(#1);\n"));
    const Slot slot = edit.file->find(1);
    ASSERT_TRUE(edit.erase(1));
    EXPECT_EQ(edit.file->find(1), NoSlot);
    EXPECT_FALSE(edit.file->present(slot));
    EXPECT_EQ(edit.file->text(slot), "");
    EXPECT_EQ(edit.file->id(slot), 1U);
    EXPECT_EQ(edit.file->keywordText(edit.file->keyword(slot)), "A");
    ASSERT_TRUE(edit.file->begin());
    EXPECT_FALSE(edit.file->erase(slot));
}

TEST(ChangedInstance, KeepsItsPlaceIdAndKeyword) {
    Editing edit(fileOf("#7=A(1);\n#8=B(2);\n"));
    const Slot slot = edit.file->find(7);
    ASSERT_TRUE(edit.replace(7, 0, "'longer than it was'"));
    EXPECT_EQ(edit.file->find(7), slot);
    EXPECT_EQ(edit.file->id(slot), 7U);
    EXPECT_EQ(edit.file->keywordText(edit.file->keyword(slot)), "A");
}

TEST(ChangedInstances, ShortOnesKeepTheirViewsWhileOthersChange) {
    std::string data;
    for (int i = 1; i <= 1000; ++i) data += "#" + std::to_string(i) + "=A(1);\n";
    Editing edit(fileOf(data));
    ASSERT_TRUE(edit.replace(1, 0, "2"));
    const std::string_view text = edit.file->text(0);
    for (InstanceId id = 2; id <= 1000; ++id) ASSERT_TRUE(edit.replace(id, 0, "2"));
    EXPECT_EQ(text, "#1=A(2);");
    EXPECT_EQ(text.data(), edit.file->text(0).data());
}

}  // namespace
}  // namespace step_tests
