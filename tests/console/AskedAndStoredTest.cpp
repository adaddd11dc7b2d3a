// What an update asks for, what the add-on stores of it, and what --exact makes of that: for each kind of value.

#include "ConsoleTest.hpp"

namespace console_tests {
namespace {

struct AskedCase {
    std::string value;  ///< In STEP form, or an instance; "" for a property that the import makes.
    std::string asked;
    const char* stored;  ///< By the add-on.
    bool asAsked;
    const char* exact;  ///< Stored with --exact; null where the item cannot hold what was asked.
};

std::vector<AskedCase> cases() {
    const std::string yes = "IFCBOOLEAN(.T.)", no = "IFCBOOLEAN(.F.)", logical = "IFCLOGICAL(.U.)";
    const std::string integer = "IFCINTEGER(5)", real = "IFCREAL(5.)", label = "IFCLABEL('a')", made;
    return {
        {no, "true", "true", true, "true"},
        {no, ".T.", "true", true, "true"},
        {no, "TRUE", "true", true, "true"},
        {no, "yes", "true", true, "true"},
        {no, "1", "true", true, "true"},
        {yes, "false", "true", false, "false"},
        {yes, ".F.", "true", false, "false"},
        {yes, "no", "true", false, "false"},
        {yes, "0", "true", false, "false"},
        {yes, "", "true", false, ""},
        {yes, "maybe", "true", false, nullptr},
        {logical, "true", "true", true, "true"},
        {logical, "false", "true", false, "false"},
        {logical, ".U.", "true", false, "unknown"},
        {logical, "", "true", false, ""},
        {integer, "7", "7", true, "7"},
        {integer, "-7", "-7", true, "-7"},
        {integer, "007", "7", true, "7"},
        {integer, "9.5", "9", false, nullptr},
        {integer, "9,5", "9", false, nullptr},
        {integer, "1e3", "1", false, nullptr},
        {integer, "2024-05-17", "2024", false, nullptr},
        {integer, "+49 171", "49", false, nullptr},
        {integer, "x", "0", false, nullptr},
        {integer, "", "0", false, ""},
        {integer, "3000000000", nullptr, false, "3000000000"},
        {real, "9.5", "9.5", true, "9.5"},
        {real, "9,5", "9", false, nullptr},
        {real, "1e3", "1000", true, "1000"},
        {real, "-.5", "-0.5", true, "-0.5"},
        {real, "12 m", "12", false, nullptr},
        {real, "x", "0", false, nullptr},
        {real, "", "0", false, ""},
        {label, "F 90", "F 90", true, "F 90"},
        {label, "007", "007", true, "007"},
        {label, "9,5", "9,5", true, "9,5"},
        {label, "2024-05-17", "2024-05-17", true, "2024-05-17"},
        {label, "false", "false", true, "false"},
        {label, ".T.", "true", false, ".T."},
        {label, " b ", " b ", true, " b "},
        {label, "", "", true, ""},
        {made, "true", "true", true, "true"},
        {made, "false", "true", false, "false"},
        {made, ".F.", "true", false, "false"},
        {made, "TRUE", "TRUE", true, "TRUE"},
        {made, "12", "12", true, "12"},
        {made, "2.75", "2", false, "2.75"},
        {made, ".5", "0.5", true, "0.5"},
        {made, "12abc", "12", false, "12abc"},
        {made, "2024-05-17", "2024", false, "2024-05-17"},
        {made, "+49 171", "49", false, "+49 171"},
        {made, "007", "7", true, "7"},
        {made, "F 90", "F 90", true, "F 90"},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),#1)", "EXISTING", "NEW", false, "EXISTING"},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),#1)", "existing", "NEW", false, "EXISTING"},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),#1)", "new", "NEW", true, "NEW"},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),#1)", "OLD", "NEW", false, nullptr},
        {"IFCPROPERTYLISTVALUE('P',$,(IFCLABEL('a')),$)", "a", "", false, nullptr},
    };
}

/// One wall a case, its property P as the case has it, and a line for each.
class AskedAndStored : public ConsoleTest {
protected:
    AskedAndStored() : rows_(cases()) {
        std::string text =
            "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
            "FILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n"
            "#1=IFCPROPERTYENUMERATION('E',(IFCLABEL('NEW'),IFCLABEL('EXISTING')),$);\n";
        std::vector<Fields> lines;
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            addWall(text, static_cast<unsigned>(i), rows_[i].value);
            lines.push_back({guid(i), "P[Custom]", "", rows_[i].asked});
        }
        write("walls.ifc", text + "ENDSEC;\nEND-ISO-10303-21;\n");
        updates(lines);
    }

    static std::string guid(std::size_t i) { return testing_support::guidText(static_cast<unsigned>(100 + i)); }

    static void addWall(std::string& text, unsigned i, const std::string& value) {
        const unsigned id = 10 + 10 * i;
        const auto root = [&](unsigned number) {
            return "'" + testing_support::globalId(testing_support::guidText(1000 + 10 * i + number)) + "'";
        };
        const auto line = [&](unsigned number, const std::string& body) {
            text += "#" + std::to_string(id + number) + "=" + body + ";\n";
        };
        const auto ref = [&](unsigned number) { return "#" + std::to_string(id + number); };
        line(0, "IFCWALL('" + testing_support::globalId(guid(i)) + "',$,'Wall',$,$,$,$,$,$)");
        if (value.empty()) return;
        line(1, value.starts_with("IFCPROPERTY") ? value : "IFCPROPERTYSINGLEVALUE('P',$," + value + ",$)");
        line(2, "IFCPROPERTYSET(" + root(2) + ",$,'Pset_Custom',$,(" + ref(1) + "))");
        line(3, "IFCRELDEFINESBYPROPERTIES(" + root(3) + ",$,$,$,(" + ref(0) + ")," + ref(2) + ")");
    }

    std::vector<AskedCase> rows_;
};

TEST_F(AskedAndStored, IsToldForEachKindOfValue) {
    const Json document = json({"import", "walls.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    ASSERT_EQ(document["result"].size(), rows_.size());
    std::uint64_t different = 0;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const Json& row = document["result"][i];
        if (!row["asAsked"].is_boolean()) continue;  // Nothing to do: the value was so before.
        EXPECT_EQ(row["asked"], rows_[i].asked) << rows_[i].value;
        if (rows_[i].stored != nullptr) {
            EXPECT_EQ(row["stored"], rows_[i].stored) << rows_[i].asked << " in " << rows_[i].value;
        }
        EXPECT_EQ(row["asAsked"], rows_[i].asAsked) << rows_[i].asked << " in " << rows_[i].value;
        EXPECT_EQ(row["line"], i + 1);
        different += rows_[i].asAsked ? 0U : 1U;
    }
    EXPECT_EQ(document["summary"]["notAsAsked"], different);
    EXPECT_EQ(document["summary"]["exact"], 0);
}

TEST_F(AskedAndStored, IsForetoldByADryRunWhichChangesNothing) {
    const Json applied = json({"import", "walls.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    const std::string before = bytes("walls.ifc");
    const Json dry = json({"import", "walls.ifc", "updates.txt"});
    EXPECT_FALSE(dry.contains("result"));
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        EXPECT_EQ(dry["review"][i]["stored"], applied["result"][i]["stored"]) << rows_[i].asked;
        EXPECT_EQ(dry["review"][i]["asAsked"], applied["result"][i]["asAsked"]) << rows_[i].asked;
    }
    EXPECT_EQ(bytes("walls.ifc"), before);
}

TEST_F(AskedAndStored, BecomesWhatWasAskedWithExactWhereTheItemCanHoldIt) {
    const Json document = json({"import", "walls.ifc", "updates.txt", "--apply", "--exact", "-o", "out.ifc"});
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const Json& row = document["result"][i];
        if (!row["asAsked"].is_boolean()) continue;
        const bool held = rows_[i].exact != nullptr;
        EXPECT_EQ(row["asAsked"], held) << rows_[i].asked << " in " << rows_[i].value;
        if (held) {
            EXPECT_EQ(row["stored"], rows_[i].exact) << rows_[i].asked << " in " << rows_[i].value;
        }
        EXPECT_EQ(row.contains("exact"), held && !rows_[i].asAsked) << rows_[i].asked << " in " << rows_[i].value;
    }
    // The saved file holds it: the same updates find nothing to correct.
    const Json again = json({"import", "out.ifc", "updates.txt", "--exact"});
    EXPECT_EQ(again["summary"]["notAsAsked"], document["summary"]["notAsAsked"]);
}

TEST_F(AskedAndStored, FailsStrictly) {
    json({"import", "walls.ifc", "updates.txt", "--strict"}, 2);
    updates({{guid(0), "P[Custom]", "", "true"}});
    json({"import", "walls.ifc", "updates.txt", "--strict"}, 0);
}

TEST_F(AskedAndStored, GivesANewStandardPropertyTheStandardsType) {
    updates(
        {{DoorGuid, "ThermalTransmittance[DoorCommon]", "", "2"}, {WallGuid, "Combustible[WallCommon]", "", "false"}});
    json({"import", "house.ifc", "updates.txt", "--apply", "--exact", "-o", "out.ifc"});
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'ThermalTransmittance',$,IFCTHERMALTRANSMITTANCEMEASURE(2.),$"));
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'Combustible',$,IFCBOOLEAN(.F.),$"));
}

TEST_F(AskedAndStored, TakesAClassificationThatIsToBeEmptyAway) {
    updates({{WallGuid, "UniFormat Classification", "", ""}});
    const Json kept = json({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("IFCRELASSOCIATESCLASSIFICATION"));
    EXPECT_EQ(kept["result"][0]["asAsked"], true);
    const Json taken = json({"import", "house.ifc", "updates.txt", "--apply", "--exact", "-o", "out.ifc"});
    EXPECT_THAT(bytes("out.ifc"), Not(HasSubstr("IFCRELASSOCIATESCLASSIFICATION")));
    EXPECT_THAT(bytes("out.ifc"), Not(HasSubstr("IFCCLASSIFICATIONREFERENCE")));
    EXPECT_EQ(taken["result"][0]["exact"], true);
    EXPECT_EQ(taken["result"][0]["stored"], "");
    EXPECT_EQ(taken["result"][0]["asAsked"], true);
}

class OldValues : public ConsoleTest {};

TEST_F(OldValues, ThatTheModelNoLongerHoldsAreConflicts) {
    updates({{WallGuid, "FireRating[WallCommon]", "F 30", "F 120"}, {DoorGuid, "Name", "", "Door"}});
    const Json document = json({"import", "house.ifc", "updates.txt"});
    EXPECT_EQ(document["review"][0]["conflict"], "F 30");
    EXPECT_TRUE(document["review"][1]["conflict"].is_null());
    EXPECT_EQ(document["summary"]["conflicts"], 1);
    EXPECT_EQ(document["review"][0]["tick"], true);
}

TEST_F(OldValues, InConflictAreNotTickedStrictly) {
    updates({{WallGuid, "FireRating[WallCommon]", "F 30", "F 120"}});
    const Json document = json({"import", "house.ifc", "updates.txt", "--strict", "--apply", "-o", "out.ifc"}, 2);
    EXPECT_EQ(document["result"][0]["tick"], false);
    EXPECT_EQ(document["summary"]["ticked"], 0);
    EXPECT_EQ(document["summary"]["done"], 0);
}

TEST_F(OldValues, OfLaterRowsOfOneItemCountForExact) {
    updates({{WallGuid, "Note[Custom]", "", "2.5"}, {WallGuid, "Note[Custom]", "", "3.5"}});
    json({"import", "house.ifc", "updates.txt", "--apply", "--exact", "-o", "out.ifc"});
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'Note',$,IFCREAL(3.5),$"));
}

TEST_F(OldValues, AreNotAskedForWhereNoLineGivesARow) {
    updates({{UnknownGuid, "Name", "", "x"}});
    expectError(run({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"}), {"updates.txt", "no row"});
    EXPECT_FALSE(exists("out.ifc"));
}

}  // namespace
}  // namespace console_tests
