#include "selection/Syntax.hpp"

#include <gmock/gmock.h>

namespace selection {
namespace {

TEST(SelectionSyntax, IsAcceptedInAllItsForms) {
    for (const char* text : {"IfcWall",
                             "!IfcWall",
                             "IfcWall, IfcDoor",
                             "IfcWall,!IfcWallStandardCase , Name = X",
                             "IfcWall + IfcDoor",
                             "IfcWall+IfcDoor",
                             "IfcWall +",
                             "4B77F0F7-7FD6-4E80-B9D9-6F7B4F2A3C10",
                             "4b77f0f7-7fd6-4e80-b9d9-6f7b4f2a3c10",
                             "2ZAJ77ix915urgC3ZTJffu",
                             "!2ZAJ77ix915urgC3ZTJffu",
                             "Name=Haustür",
                             "Name!=Haustür",
                             "Name*=tür",
                             "Name!*=tür",
                             "Name=/T.*/",
                             "Name=/a\\/b/",
                             "Name=\"a, \\\"b\\\" = c\"",
                             "Name=\"\"",
                             "Name=C+D",
                             "Name=F.90",
                             "Pset_WallCommon.FireRating=\"F 90\"",
                             "\"My set\".\"My property\"=NULL",
                             "/Pset_.*/.FireRating!=NULL",
                             "Pset_WallCommon./Fire.*/=NULL",
                             "FireRating=NULL",
                             "Width>2.5",
                             "Width >= 2.5",
                             "Width<-2",
                             "Width<=+2",
                             "IsExternal=TRUE",
                             "IsExternal!=FALSE",
                             "classification=\"B2010\"",
                             "location=Erdgeschoss",
                             "type=\"T 30\"",
                             "material*=Beton",
                             "  IfcWall  "}) {
        const auto parsed = parse(text);
        EXPECT_TRUE(parsed) << text << ": " << (parsed ? "" : parsed.error().message);
    }
}

TEST(SelectionSyntax, MarksThePlaceOfAMistake) {
    const std::pair<const char*, const char*> table[] = {
        {"", "a class, an attribute, a property or another facet is missing, at character 1: <<here>>"},
        {"IfcWall,", "a class, an attribute, a property or another facet is missing, at character 9: IfcWall,<<here>>"},
        {",IfcWall", "a class, an attribute, a property or another facet is missing, at character 1: <<here>>,IfcWall"},
        {"IfcWall IfcDoor", "a comma or + is missing, at character 9: IfcWall <<here>>IfcDoor"},
        {"Wall", "a comparison such as =NULL is missing, at character 5: Wall<<here>>"},
        {"Ifc", "a comparison such as =NULL is missing, at character 4: Ifc<<here>>"},
        {"Name=", "a value is missing, at character 6: Name=<<here>>"},
        {"Name=,IfcWall", "a value is missing, at character 6: Name=<<here>>,IfcWall"},
        {"Name==X", "a value is missing, at character 6: Name=<<here>>=X"},
        {"Name=a b", "a comma or + is missing, at character 8: Name=a <<here>>b"},
        {"Größe=ü \"", "a comma or + is missing, at character 9: Größe=ü <<here>>\""},
        {"Name=\"open", "a quote is open, at character 6: Name=<<here>>\"open"},
        {"Name=/open", "a / is open, at character 6: Name=<<here>>/open"},
        {"Name=/(/", "it is no regular expression (U_REGEX_MISMATCHED_PAREN), at character 6: Name=<<here>>/(/"},
        {"Name!>3", "! stands before = and *= only, at character 5: Name<<here>>!>3"},
        {"Name*3", "a comparison is missing: =, !=, *=, !*=, >, >=, < or <=, at character 5: Name<<here>>*3"},
        {"!Name=X", "! stands before a class, a GUID or a comparison, at character 1: <<here>>!Name=X"},
        {"Pset.=X", "the name of a property is missing, at character 6: Pset.<<here>>=X"},
        {"Pset.A.B=X", "a comparison is missing: =, !=, *=, !*=, >, >=, < or <=, at character 7: Pset.A<<here>>.B=X"},
        {"/Pset.*/=X", "behind /a set/ a point and a property belong, at character 1: <<here>>/Pset.*/=X"},
        {"group=X", "group is a facet that is not known here, at character 1: <<here>>group=X"},
        {"query:x=X", "query: is a facet that is not known here, at character 1: <<here>>query:x=X"},
    };
    for (const auto& [text, message] : table) {
        const auto parsed = parse(text);
        ASSERT_FALSE(parsed) << text;
        EXPECT_EQ(parsed.error().message, message);
    }
}

TEST(SelectionSyntax, EndsAValueAtAPlusOnlyBehindNumbersAndSpecialWords) {
    const std::pair<const char*, std::size_t> table[] = {
        {"A=NULL+IfcDoor", 2}, {"A=TRUE+IfcDoor", 2}, {"A=1.5+IfcDoor", 2},   {"A=-1.5+IfcDoor", 2},
        {"A=B+IfcDoor", 1},    {"A=B + IfcDoor", 2},  {"A=\"B\"+IfcDoor", 2}, {"A=/B/+IfcDoor", 2},
        {"A=+49", 1},          {"A=NULLS+IfcDoor", 1}};
    for (const auto& [text, groups] : table) {
        const auto parsed = parse(text);
        ASSERT_TRUE(parsed) << text << parsed.error().message;
        EXPECT_EQ(parsed->groups.size(), groups) << text;
    }
}

}  // namespace
}  // namespace selection
