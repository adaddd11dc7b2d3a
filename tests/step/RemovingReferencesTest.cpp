// References taken out of a list one by one: the text is rewritten when it is asked for, and reads as if each had been
// taken out at once.

#include "step/StepText.hpp"

namespace step_tests {
namespace {

struct Removal {
    const char* name;
    std::string before;
    std::vector<InstanceId> members;
    std::string after;
};

std::ostream& operator<<(std::ostream& out, const Removal& removal) {
    return out << removal.before;
}

class RemovingReferences : public ::testing::TestWithParam<Removal> {
protected:
    void removeAll(StepFile& file) {
        for (const InstanceId member : GetParam().members) {
            const auto left = file.removeReferences(0, 1, member);
            ASSERT_TRUE(left) << left.error().message;
        }
    }
};

TEST_P(RemovingReferences, LeavesTheRestAsFound) {
    const auto file = opened(fileOf(GetParam().before));
    ASSERT_TRUE(file->begin());
    removeAll(*file);
    EXPECT_TRUE(file->commit("Remove"));
    EXPECT_EQ(dataOf(file->bytes()), GetParam().after);
    EXPECT_TRUE(file->modified());
    ASSERT_TRUE(file->undo());
    EXPECT_EQ(dataOf(file->bytes()), GetParam().before);
    EXPECT_FALSE(file->modified());
    ASSERT_TRUE(file->redo());
    EXPECT_EQ(dataOf(file->bytes()), GetParam().after);
}

TEST_P(RemovingReferences, IsTheSameWithALookAfterEach) {
    const auto file = opened(fileOf(GetParam().before));
    ASSERT_TRUE(file->begin());
    for (const InstanceId member : GetParam().members) {
        ASSERT_TRUE(file->removeReferences(0, 1, member));
        EXPECT_EQ(file->text(0).find('#' + std::to_string(member) + ','), std::string_view::npos);
    }
    EXPECT_EQ(dataOf(file->bytes()), GetParam().after) << "also while the command is open";
}

TEST_P(RemovingReferences, CanBeRolledBack) {
    const auto file = opened(fileOf(GetParam().before));
    ASSERT_TRUE(file->begin());
    removeAll(*file);
    file->rollback();
    EXPECT_EQ(dataOf(file->bytes()), GetParam().before);
    EXPECT_FALSE(file->modified());
    EXPECT_FALSE(file->undoSteps().undo.has_value());
}

INSTANTIATE_TEST_SUITE_P(
    Lists, RemovingReferences,
    ::testing::Values(Removal{"First", "#1=A(1,(#2,#3,#4),2);\n", {2}, "#1=A(1,(#3,#4),2);\n"},
                      Removal{"Last", "#1=A(1,(#2,#3,#4),2);\n", {4}, "#1=A(1,(#2,#3),2);\n"},
                      Removal{"Several", "#1=A(1,(#2,#3,#4,#5),2);\n", {4, 2}, "#1=A(1,(#3,#5),2);\n"},
                      Removal{"All", "#1=A(1,(#2,#3),2);\n", {3, 2}, "#1=A(1,(),2);\n"},
                      Removal{"EachOfARepeatedOne", "#1=A(1,(#2,#3,#2),2);\n", {2}, "#1=A(1,(#3),2);\n"},
                      Removal{"WithLeadingZeros", "#1=A(1,(#02,#3),2);\n", {2}, "#1=A(1,(#3),2);\n"},
                      Removal{"TheOnlyOne", "#1=A(1,( #2 ),2);\n", {2}, "#1=A(1,(  ),2);\n"},
                      Removal{"TheLastWithItsBlank", "#1=A(1,(#2, #3, #4 ),2);\n", {4}, "#1=A(1,(#2, #3 ),2);\n"},
                      Removal{"EachOfManyRepetitions", "#1=A(1,(#2,#3,#2,#2,#4,#2),2);\n", {2}, "#1=A(1,(#3,#4),2);\n"},
                      Removal{"NothingButRepetitions", "#1=A(1,(#2,#2),2);\n", {2}, "#1=A(1,(),2);\n"},
                      Removal{"OneALine", "#1=A(1,(\n #2,\n #3,\n #4),2);\n", {3}, "#1=A(1,(\n #2,\n #4),2);\n"},
                      Removal{
                          "BesideComments", "#1=A(1,(#2,/*three*/#3,#4),2);\n", {4}, "#1=A(1,(#2,/*three*/#3),2);\n"},
                      Removal{"FromAmongOthers", "#1=A(1,($,#2,IFCX(#3)),#2);\n", {2}, "#1=A(1,($,IFCX(#3)),#2);\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(RemoveReferences, TellsHowManyOthersAreLeft) {
    const auto file = opened(fileOf("#1=A((#2,#3,#2,#4));\n"));
    ASSERT_TRUE(file->begin());
    EXPECT_EQ(*file->removeReferences(0, 0, 3), 2U);
    EXPECT_EQ(*file->removeReferences(0, 0, 2), 1U);
    EXPECT_EQ(*file->removeReferences(0, 0, 4), 0U);
}

TEST(RemoveReferences, RaisesTheRevisionEachTime) {
    const auto file = opened(fileOf("#1=A((#2,#3));\n"));
    ASSERT_TRUE(file->begin());
    const std::uint64_t before = file->revision();
    ASSERT_TRUE(file->removeReferences(0, 0, 3));
    EXPECT_EQ(file->revision(), before + 1);
}

TEST(RemoveReferences, GoesTogetherWithOtherEdits) {
    const auto file = opened(fileOf("#1=A(1,(#2,#3),(#2,#4));\n"));
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(file->removeReferences(0, 1, 2));
    ASSERT_TRUE(file->removeReferences(0, 2, 2));
    ASSERT_TRUE(file->replaceValue(0, argument(*file, 1, 0), "7"));
    ASSERT_TRUE(file->removeReferences(0, 2, 4));
    ASSERT_TRUE(file->addReference(0, 2, 5));
    EXPECT_EQ(file->text(0), "#1=A(7,(#3),(#5));");
    file->rollback();
    EXPECT_EQ(file->text(0), "#1=A(1,(#2,#3),(#2,#4));");
}

TEST(RemoveReferences, OfWhatTheCommandAddedIsNoChange) {
    const auto file = opened(fileOf("#1=A((#2,#3));\n"));
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(file->addReference(0, 0, 4));
    ASSERT_TRUE(file->removeReferences(0, 0, 4));
    EXPECT_FALSE(file->commit("Nothing"));
    EXPECT_FALSE(file->modified());
}

TEST(RemoveReferences, IsForgottenWithTheInstance) {
    const auto file = opened(fileOf("#1=A((#2,#3));\n#5=B();\n"));
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(file->removeReferences(0, 0, 3));
    ASSERT_TRUE(file->erase(0));
    EXPECT_TRUE(file->commit("Erase"));
    EXPECT_EQ(dataOf(file->bytes()), "#5=B();\n");
    ASSERT_TRUE(file->undo());
    EXPECT_EQ(dataOf(file->bytes()), "#1=A((#2,#3));\n#5=B();\n");
}

struct Refusal {
    const char* name;
    std::string data;
    std::size_t argument;
    InstanceId member;
};

std::ostream& operator<<(std::ostream& out, const Refusal& refusal) {
    return out << refusal.data;
}

class RefusedRemoval : public ::testing::TestWithParam<Refusal> {};

TEST_P(RefusedRemoval, ChangesNothing) {
    const auto file = opened(fileOf(GetParam().data));
    ASSERT_TRUE(file->begin());
    const auto left = file->removeReferences(0, GetParam().argument, GetParam().member);
    ASSERT_FALSE(left);
    EXPECT_EQ(left.error().kind, ErrorKind::Refused);
    EXPECT_FALSE(file->commit("Nothing"));
    EXPECT_EQ(dataOf(file->bytes()), GetParam().data);
}

INSTANTIATE_TEST_SUITE_P(Reasons, RefusedRemoval,
                         ::testing::Values(Refusal{"NotNamed", "#1=A((#2));\n", 0, 3},
                                           Refusal{"NamedDeeper", "#1=A(((#3)));\n", 0, 3},
                                           Refusal{"NoList", "#1=A(#3);\n", 0, 3},
                                           Refusal{"NoSuchArgument", "#1=A((#3));\n", 1, 3},
                                           Refusal{"Complex", "#1=(A((#3))B());\n", 0, 3},
                                           Refusal{"RepeatedId", "#1=A((#3));\n#1=A((#3));\n", 0, 3}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RemoveReferences, OutsideACommandIsRefused) {
    const auto file = opened(fileOf("#1=A((#2));\n"));
    EXPECT_FALSE(file->removeReferences(0, 0, 2));
}

TEST(RemoveReferences, TwiceIsRefused) {
    const auto file = opened(fileOf("#1=A((#2,#3));\n"));
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(file->removeReferences(0, 0, 2));
    EXPECT_FALSE(file->removeReferences(0, 0, 2));
    EXPECT_EQ(file->text(0), "#1=A((#3));");
}

}  // namespace
}  // namespace step_tests
