// New instances: where they are written, and their ids.

#include "step/StepText.hpp"

#include <random>

namespace step_tests {
namespace {

using ::testing::HasSubstr;

const std::string Header = "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\n";

struct Addition {
    const char* name;
    std::string before;
    std::string after;
};

std::ostream& operator<<(std::ostream& out, const Addition& addition) {
    return out << addition.before;
}

class Appending : public ::testing::TestWithParam<Addition> {};

TEST_P(Appending, GoesToTheEndOfTheNeighboursSection) {
    Editing edit(GetParam().before);
    ASSERT_TRUE(edit.append("B('x')", 1));
    EXPECT_EQ(edit.file->bytes(), GetParam().after);
    ASSERT_TRUE(edit.file->undo());
    EXPECT_EQ(edit.file->bytes(), GetParam().before);
    EXPECT_FALSE(edit.file->modified());
}

INSTANTIATE_TEST_SUITE_P(
    Places, Appending,
    ::testing::Values(
        Addition{"LineFeeds", Header + "DATA;\n#1=A();\nENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A();\n#2=B('x');\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"CarriageReturnLineFeeds", Header + "DATA;\r\n#1=A();\r\nENDSEC;\r\nEND-ISO-10303-21;",
                 Header + "DATA;\r\n#1=A();\r\n#2=B('x');\r\nENDSEC;\r\nEND-ISO-10303-21;"},
        Addition{"CarriageReturns", Header + "DATA;\r#1=A();\rENDSEC;\rEND-ISO-10303-21;",
                 Header + "DATA;\r#1=A();\r#2=B('x');\rENDSEC;\rEND-ISO-10303-21;"},
        Addition{"MixedTakesThatOfTheLineBefore", Header + "DATA;\n#1=A();\r\nENDSEC;\nEND-ISO-10303-21;",
                 Header + "DATA;\n#1=A();\r\n#2=B('x');\r\nENDSEC;\nEND-ISO-10303-21;"},
        Addition{"OneLine", "ISO-10303-21;HEADER;ENDSEC;DATA;#1=A();ENDSEC;END-ISO-10303-21;",
                 "ISO-10303-21;HEADER;ENDSEC;DATA;#1=A();#2=B('x');ENDSEC;END-ISO-10303-21;"},
        Addition{"EndOfSectionOnTheLastLine", Header + "DATA;\n#1=A();ENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A();\n#2=B('x');\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"EndOfSectionIndented", Header + "DATA;\n  #1=A();\n  ENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n  #1=A();\n#2=B('x');\n  ENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"BehindTheLastComment", Header + "DATA;\n#1=A();\n/* end */\nENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A();\n/* end */\n#2=B('x');\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"NotIntoALateComment", Header + "DATA;\n#1=A();\n/* end\n*/ ENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A();\n/* end\n*/ \n#2=B('x');\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"EndOfSectionInAString", Header + "DATA;\n#1=A('ENDSEC;');\nENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A('ENDSEC;');\n#2=B('x');\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"TheFirstOfTwoSections",
                 Header + "DATA;\n#1=A();\nENDSEC;\nDATA;\n#5=C();\nENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A();\n#6=B('x');\nENDSEC;\nDATA;\n#5=C();\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"TheSecondOfTwoSections",
                 Header + "DATA;\n#5=C();\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#5=C();\nENDSEC;\nDATA;\n#1=A();\n#6=B('x');\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"EndOfSectionMissing", Header + "DATA;\n#1=A();\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A();\n#2=B('x');\nEND-ISO-10303-21;\n"},
        Addition{"FileCutBehindALine", Header + "DATA;\n#1=A();\n", Header + "DATA;\n#1=A();\n#2=B('x');\n"},
        Addition{"FileCutInALine", Header + "DATA;\n#1=A();", Header + "DATA;\n#1=A();\n#2=B('x');\n"},
        Addition{"InFrontOfWhatWasCut", Header + "DATA;\n#1=A();\n#2=C('x",
                 Header + "DATA;\n#1=A();\n#3=B('x');\n#2=C('x"},
        Addition{"InFrontOfMalformedText", Header + "DATA;\n#1=A();\n#2=C('x;\nENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#1=A();\n#3=B('x');\n#2=C('x;\nENDSEC;\nEND-ISO-10303-21;\n"}),
    [](const auto& row) { return std::string(row.param.name); });

class Inserting : public ::testing::TestWithParam<Addition> {};

TEST_P(Inserting, GoesRightBehindTheOriginal) {
    Editing edit(GetParam().before);
    ASSERT_TRUE(edit.insertBehind("B('x')", 1));
    EXPECT_EQ(edit.file->bytes(), GetParam().after);
    EXPECT_TRUE(edit.file->modified());
    ASSERT_TRUE(edit.file->undo());
    EXPECT_EQ(edit.file->bytes(), GetParam().before);
    EXPECT_FALSE(edit.file->modified());
    ASSERT_TRUE(edit.file->redo());
    EXPECT_EQ(edit.file->bytes(), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Places, Inserting,
    ::testing::Values(
        Addition{"LineFeeds", fileOf("#1=A();\n#2=C();\n"), fileOf("#1=A();\n#3=B('x');\n#2=C();\n")},
        Addition{"TheLineEndOfTheOriginal", fileOf("#1=A();\r\n#2=C();\n"),
                 fileOf("#1=A();\r\n#3=B('x');\r\n#2=C();\n")},
        Addition{"CarriageReturns", fileOf("#1=A();\r#2=C();\r"), fileOf("#1=A();\r#3=B('x');\r#2=C();\r")},
        Addition{"Blanks", fileOf(" #1=A(); \t\n  #2=C();\n"), fileOf(" #1=A(); \t\n#3=B('x');\n  #2=C();\n")},
        Addition{"ACommentStaysWithTheOriginal", fileOf("#1=A(); /* a */ /* b */\n#2=C();\n"),
                 fileOf("#1=A(); /* a */ /* b */\n#3=B('x');\n#2=C();\n")},
        Addition{"ACommentOverLinesStaysWithTheNext", fileOf("#1=A(); /* a\n */\n#2=C();\n"),
                 fileOf("#1=A();#3=B('x'); /* a\n */\n#2=C();\n")},
        Addition{"SeveralOnALine", fileOf("#1=A(); #2=C();\n"), fileOf("#1=A();#3=B('x'); #2=C();\n")},
        Addition{"OverLines", fileOf("#1=\nA()\n;\n#2=C();\n"), fileOf("#1=\nA()\n;\n#3=B('x');\n#2=C();\n")},
        Addition{"OneLine", "ISO-10303-21;HEADER;ENDSEC;DATA;#1=A();#2=C();ENDSEC;END-ISO-10303-21;",
                 "ISO-10303-21;HEADER;ENDSEC;DATA;#1=A();#3=B('x');#2=C();ENDSEC;END-ISO-10303-21;"},
        Addition{"TheLastOfItsSection", fileOf("#2=C();\n#1=A();\n"), fileOf("#2=C();\n#1=A();\n#3=B('x');\n")},
        Addition{"TheSecondOfTwoSections",
                 Header + "DATA;\n#5=C();\nENDSEC;\nDATA;\n#1=A();\n#2=D();\nENDSEC;\nEND-ISO-10303-21;\n",
                 Header + "DATA;\n#5=C();\nENDSEC;\nDATA;\n#1=A();\n#6=B('x');\n#2=D();\nENDSEC;\nEND-ISO-10303-21;\n"},
        Addition{"FileCutInALine", Header + "DATA;\n#1=A();", Header + "DATA;\n#1=A();\n#2=B('x');"},
        Addition{"InFrontOfMalformedText", fileOf("#1=A();#2=C('x;\n"), fileOf("#1=A();#3=B('x');#2=C('x;\n")},
        Addition{"InFrontOfWhatCannotTakeMore", Header + "DATA;\n#1=A(); /* a */\n#2=C('x",
                 Header + "DATA;\n#1=A();\n#3=B('x'); /* a */\n#2=C('x"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(InsertedInstances, StandInTheOrderTheyWereMadeIn) {
    Editing edit(fileOf("#1=A();\n#2=C();\n"));
    ASSERT_TRUE(edit.insertBehind("B(3)", 1));
    ASSERT_TRUE(edit.append("B(4)", 1));
    ASSERT_TRUE(edit.insertBehind("B(5)", 1));
    ASSERT_TRUE(edit.insertBehind("B(6)", 2));
    EXPECT_EQ(dataOf(edit.file->bytes()), "#1=A();\n#3=B(3);\n#5=B(5);\n#2=C();\n#6=B(6);\n#4=B(4);\n");
}

TEST(InsertedInstances, StandBehindNewOnesToo) {
    Editing edit(fileOf("#1=A();\n#2=C();\n"));
    ASSERT_TRUE(edit.insertBehind("B(3)", 1));
    ASSERT_TRUE(edit.insertBehind("B(4)", 1));
    ASSERT_TRUE(edit.insertBehind("B(5)", 3));
    ASSERT_TRUE(edit.append("B(6)", 1));
    ASSERT_TRUE(edit.append("B(7)", 1));
    ASSERT_TRUE(edit.insertBehind("B(8)", 6));
    ASSERT_TRUE(edit.insertBehind("B(9)", 8));
    EXPECT_EQ(dataOf(edit.file->bytes()),
              "#1=A();\n#3=B(3);\n#5=B(5);\n#4=B(4);\n#2=C();\n#6=B(6);\n#8=B(8);\n#9=B(9);\n#7=B(7);\n");
    ASSERT_TRUE(edit.erase(3));
    ASSERT_TRUE(edit.erase(1));
    EXPECT_EQ(dataOf(edit.file->bytes()), "#5=B(5);\n#4=B(4);\n#2=C();\n#6=B(6);\n#8=B(8);\n#9=B(9);\n#7=B(7);\n");
}

TEST(InsertedInstances, StandBetweenOthersThatChange) {
    Editing edit(fileOf("#1=A(1);\n#2=C(2);\n#3=D();\n"));
    ASSERT_TRUE(edit.insertBehind("B(4)", 1));
    ASSERT_TRUE(edit.replace(1, 0, "'a'"));
    ASSERT_TRUE(edit.replace(2, 0, "'c'"));
    EXPECT_EQ(dataOf(edit.file->bytes()), "#1=A('a');\n#4=B(4);\n#2=C('c');\n#3=D();\n");
    ASSERT_TRUE(edit.erase(2));
    EXPECT_EQ(dataOf(edit.file->bytes()), "#1=A('a');\n#4=B(4);\n#3=D();\n");
}

/// Whatever was inserted where: slots are compared as their instances follow one another in the file.
TEST(InsertedInstances, AreComparedAsTheyAreWritten) {
    std::mt19937 random(7);  // NOLINT: the same order in each run
    const std::string two = "DATA;\n#1=A();\n#2=A();\nENDSEC;\nDATA;\n#3=A();\n#4=A();\nENDSEC;\nEND-ISO-10303-21;\n";
    for (int round = 0; round < 50; ++round) {
        Editing edit(Header + two);
        for (InstanceId next = 5; next < 25; ++next) {
            const InstanceId other = 1 + random() % (next - 1);
            ASSERT_TRUE(random() % 3 == 0 ? edit.append("B()", other) : edit.insertBehind("B()", other));
        }
        const auto again = opened(edit.file->bytes());
        ASSERT_EQ(again->slotCount(), 24U);
        for (InstanceId a = 1; a < 25; ++a) {
            for (InstanceId b = 1; b < 25; ++b) {
                ASSERT_EQ(edit.file->before(edit.file->find(a), edit.file->find(b)), again->find(a) < again->find(b))
                    << a << ", " << b << "\n"
                    << edit.file->bytes();
            }
        }
    }
}

TEST(InsertBehind, RefusesWhatAppendRefuses) {
    Editing edit(fileOf("#1=A();\n"));
    EXPECT_EQ(edit.file->insertBehind("B()", 0).error().kind, ErrorKind::Refused) << "outside a command";
    EXPECT_THAT(edit.insertBehind("B('x)", 1).error().message, HasSubstr("malformed"));
    EXPECT_THAT(edit.insertBehind("B()", 7).error().message, HasSubstr("no such instance"));
}

TEST(Room, IsWhatIdsAreLeft) {
    Editing edit(fileOf("#9223372036854775804=A();\n"));
    ASSERT_TRUE(edit.file->begin());
    EXPECT_TRUE(edit.file->checkRoom(3));
    EXPECT_THAT(edit.file->checkRoom(4).error().message, HasSubstr("no id left"));
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(edit.file->append("B()", 0));
    EXPECT_TRUE(edit.file->checkRoom(0));
    EXPECT_FALSE(edit.file->checkRoom(1));
    EXPECT_FALSE(edit.file->append("B()", 0));
}

struct Highest {
    const char* name;
    std::string data;
    InstanceId next;
};

class NewIds : public ::testing::TestWithParam<Highest> {};

TEST_P(NewIds, AreAboveEveryIdMentioned) {
    Editing edit(fileOf(GetParam().data));
    const auto slot = edit.append("B()", 1);
    ASSERT_TRUE(slot);
    EXPECT_EQ(edit.file->id(*slot), GetParam().next);
    EXPECT_EQ(edit.file->find(GetParam().next), *slot);
    EXPECT_EQ(edit.file->keywordText(edit.file->keyword(*slot)), "B");
}

INSTANTIATE_TEST_SUITE_P(
    Mentions, NewIds,
    ::testing::Values(Highest{"ByInstances", "#1=A();\n#90=A();\n#7=A();\n", 91},
                      Highest{"ByDanglingReferences", "#1=A((#2,#50),#4);\n", 51},
                      Highest{"ByComments", "#1=A();\n/* was #60=C(); */\n", 61},
                      Highest{"ByCommentsInInstances", "#1=A(/* #70 isn't */'x');\n", 71},
                      Highest{"NotByStrings", "#1=A('#80');\n#2=A('it''s #81');\n", 3},
                      Highest{"NotByStringsOverManyBlocks",
                              "#1=A('" + std::string(200, 'x') + "#80" + std::string(200, 'y') + "',#5);\n", 6},
                      Highest{"ByReferencesBehindStrings", "#1=A('" + std::string(200, 'x') + "',#80);\n", 81},
                      Highest{"ByMalformedInstances", "#1=A();\n#95=A(;\n#2=B();\n", 96},
                      Highest{"ByLeadingZeros", "#1=A(#0000000000000000000000055);\n", 56},
                      Highest{"Beyond32Bits", "#1=A();\n#4294967295=A();\n", 4294967296}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NewId, IsAboveThoseOfLinkSections) {
    Editing edit(Header + "REFERENCE;\n#77=<http://x>;\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\nEND-ISO-10303-21;\n");
    const auto slot = edit.append("B()", 1);
    ASSERT_TRUE(slot);
    EXPECT_EQ(edit.file->id(*slot), 78U);
}

TEST(NewId, MustFitSixtyFourBitsWithSign) {
    Editing edit(fileOf("#1=A();\n#18446744073709551615=A();\n"));
    const auto slot = edit.append("B()", 1);
    ASSERT_FALSE(slot);
    EXPECT_EQ(slot.error().kind, ErrorKind::Refused);
    EXPECT_THAT(slot.error().message, HasSubstr("no id left"));
}

TEST(NewInstances, AreWrittenInTheOrderOfTheirIds) {
    Editing edit(fileOf("#1=A();\n"));
    ASSERT_TRUE(edit.append("B(1)", 1));
    ASSERT_TRUE(edit.append("B(2)", 2));
    ASSERT_TRUE(edit.append("B(3)", 1));
    EXPECT_EQ(dataOf(edit.file->bytes()), "#1=A();\n#2=B(1);\n#3=B(2);\n#4=B(3);\n");
}

TEST(NewInstances, CanBeChangedAndErased) {
    Editing edit(fileOf("#1=A();\n"));
    ASSERT_TRUE(edit.append("B(1)", 1));
    ASSERT_TRUE(edit.replace(2, 0, "'changed'"));
    EXPECT_EQ(dataOf(edit.file->bytes()), "#1=A();\n#2=B('changed');\n");
    ASSERT_TRUE(edit.erase(2));
    EXPECT_EQ(dataOf(edit.file->bytes()), "#1=A();\n");
    EXPECT_FALSE(edit.file->modified());
    // The id of an erased instance may stand in somebody's notes: it is not given away again.
    const auto next = edit.append("B(3)", 1);
    EXPECT_EQ(edit.file->id(*next), 3U);
}

TEST(NewInstances, GetTheSameIdsAfterAnUndo) {
    Editing edit(fileOf("#1=A();\n"));
    ASSERT_TRUE(edit.append("B(1)", 1));
    const std::string bytes = edit.file->bytes();
    ASSERT_TRUE(edit.file->undo());
    EXPECT_EQ(edit.file->find(2), NoSlot);
    const auto again = edit.append("B(1)", 1);
    EXPECT_EQ(edit.file->id(*again), 2U);
    EXPECT_EQ(edit.file->find(2), *again);
    EXPECT_EQ(edit.file->bytes(), bytes);
}

TEST(NewInstances, GetTheSameIdsAfterARollback) {
    Editing edit(fileOf("#1=A();\n"));
    ASSERT_TRUE(edit.file->begin());
    ASSERT_TRUE(edit.file->append("B(1)", 0));
    edit.file->rollback();
    EXPECT_EQ(edit.file->find(2), NoSlot);
    const auto again = edit.append("B(1)", 1);
    EXPECT_EQ(edit.file->id(*again), 2U);
}

TEST(NewInstances, UndoneBeforeOneThatNeverAppendedKeepTheirIds) {
    Editing edit(fileOf("#1=A(1);\n"));
    ASSERT_TRUE(edit.replace(1, 0, "2"));
    ASSERT_TRUE(edit.append("B(1)", 1));
    ASSERT_TRUE(edit.file->undo());
    ASSERT_TRUE(edit.file->undo());
    ASSERT_TRUE(edit.file->redo());
    ASSERT_TRUE(edit.file->redo());
    EXPECT_EQ(dataOf(edit.file->bytes()), "#1=A(2);\n#2=B(1);\n");
    const auto next = edit.append("B(2)", 1);
    EXPECT_EQ(edit.file->id(*next), 3U);
}

TEST(Append, RefusesWhatIsNoInstance) {
    Editing edit(fileOf("#1=A();\n"));
    for (const std::string_view body :
         {"", "B", "B(", "B(1", "B(1);", "B(1)C(2)", "(B(1)C(2))", "1B()", " B()", "B('x)"}) {
        const auto slot = edit.append(body, 1);
        ASSERT_FALSE(slot) << body;
        EXPECT_EQ(slot.error().kind, ErrorKind::Refused);
    }
    EXPECT_FALSE(edit.file->modified());
}

TEST(Append, OutsideACommandIsRefused) {
    const auto file = opened(fileOf("#1=A();\n"));
    EXPECT_EQ(file->append("B()", 0).error().kind, ErrorKind::Refused);
}

TEST(Append, WithoutADataSectionIsRefused) {
    Editing edit(Header + "END-ISO-10303-21;\n");
    ASSERT_TRUE(edit.file->begin());
    EXPECT_THAT(edit.file->append("B()", NoSlot).error().message, HasSubstr("no section DATA"));
}

TEST(Append, WithoutANeighbourGoesToTheLastSection) {
    Editing edit(Header + "DATA;\nENDSEC;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n");
    ASSERT_TRUE(edit.file->begin());
    ASSERT_TRUE(edit.file->append("B()", NoSlot));
    EXPECT_EQ(edit.file->bytes(), Header + "DATA;\nENDSEC;\nDATA;\n#1=B();\nENDSEC;\nEND-ISO-10303-21;\n");
}

}  // namespace
}  // namespace step_tests
