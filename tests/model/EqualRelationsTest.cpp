// What one command gives to several elements alike is written once, and is each element's own all the same: undo takes
// it back, and a change of one of them splits it again.

#include "TinyModel.hpp"
#include "support/Stopwatch.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

namespace {

using testing::HasSubstr;

constexpr std::string_view AllSchemas[] = {"IFC2X3", "IFC4", "IFC4X3"};

std::size_t countOf(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

/// How many classification references and relations to them, property sets and relations to them the file has.
struct Counts {
    std::size_t references, classifications, sets, definitions;

    explicit Counts(Opened& model)
        : references(countOf(model->bytes(), "=IFCCLASSIFICATIONREFERENCE(")),
          classifications(countOf(model->bytes(), "=IFCRELASSOCIATESCLASSIFICATION(")),
          sets(countOf(model->bytes(), "=IFCPROPERTYSET(")),
          definitions(countOf(model->bytes(), "=IFCRELDEFINESBYPROPERTIES(")) {}
};

/// Walls and nothing else that matters.
struct Walls {
    explicit Walls(std::string_view schema, std::size_t count) : ifc(std::string(schema)) {
        for (std::size_t i = 0; i < count; ++i) ids.push_back(ifc.element("IfcWall", "Wall"));
    }

    TinyModel ifc;
    Ids ids;
};

/// One command that does the same to several elements.
void together(Opened& model, const std::vector<model::Element>& elements,
              const std::function<model::Status(model::Element)>& edit) {
    const auto ran = model->command("together", [&] {
        for (const model::Element element : elements) EXPECT_TRUE(edit(element));
        return 0;
    });
    ASSERT_TRUE(ran);
}

void classify(Opened& model, const std::vector<model::Element>& elements, const std::string& item) {
    together(model, elements, [&](model::Element element) {
        auto wanted = model.wantedReference(element, "UniFormat", item, "Walls");
        wanted.classificationName = u"UniFormat";
        return model->setClassification(element, wanted);
    });
}

void setTwoProperties(Opened& model, const std::vector<model::Element>& elements, const std::string& value) {
    together(model, elements, [&](model::Element element) {
        EXPECT_TRUE(model->setProperty(element, model.wantedProperty(element, "S", "P", value)));
        return model->setProperty(element, model.wantedProperty(element, "S", "Q", "q"));
    });
}

/// The states before and after the last command, by undo and redo, and the last one read anew.
void expectUndoable(Opened& model, const std::string& before) {
    const std::string after = model->bytes();
    EXPECT_EQ(Opened(after).snapshot(), model.snapshot());
    ASSERT_TRUE(model->undo());
    EXPECT_EQ(model->bytes(), before);
    EXPECT_EQ(Opened(before).snapshot(), model.snapshot());
    ASSERT_TRUE(model->redo());
    EXPECT_EQ(model->bytes(), after);
}

TEST(EqualClassifications, OfOneCommandAreOneReferenceAndOneRelation) {
    for (const std::string_view schema : AllSchemas) {
        Opened model(Walls(schema, 5).ifc);
        const std::string before = model->bytes();
        classify(model, {0, 1, 2, 4}, "B2010");
        const Counts counts(model);
        EXPECT_EQ(counts.references, 1U) << schema;
        EXPECT_EQ(counts.classifications, 1U) << schema;
        for (const model::Element element : {0U, 1U, 2U, 4U})
            EXPECT_EQ(model.classification(element, "UniFormat"), "B2010{Walls}") << schema;
        EXPECT_EQ(model.classification(3, "UniFormat"), "(none)") << schema;
        expectUndoable(model, before);
    }
}

TEST(EqualClassifications, AreSplitByALaterChangeOfOne) {
    for (const std::string_view schema : AllSchemas) {
        Opened model(Walls(schema, 3).ifc);
        classify(model, {0, 1, 2}, "B2010");
        const std::string before = model->bytes();
        classify(model, {1}, "C1010");
        EXPECT_EQ(model.classification(0, "UniFormat"), "B2010{Walls}") << schema;
        EXPECT_EQ(model.classification(1, "UniFormat"), "C1010{Walls}") << schema;
        EXPECT_EQ(model.classification(2, "UniFormat"), "B2010{Walls}") << schema;
        EXPECT_EQ(Counts(model).references, 2U) << schema;
        expectUndoable(model, before);
    }
}

TEST(EqualClassifications, AreNotJoinedWithOthersThatDifferInAnything) {
    const auto reference = [](std::string_view label, std::string_view item, std::string_view name,
                              std::string_view system) {
        model::ClassificationReference wanted;
        wanted.system = utf16(label);
        wanted.itemReference = utf16(item);
        wanted.name = utf16(name);
        wanted.classificationName = utf16(system);
        return wanted;
    };
    const std::vector<model::ClassificationReference> different = {
        reference("L", "1", "N", "S"), reference("M", "1", "N", "S"), reference("L", "2", "N", "S"),
        reference("L", "1", "O", "S"), reference("L", "1", "N", "T")};
    for (const std::string_view schema : AllSchemas) {
        Opened model(Walls(schema, 5).ifc);
        together(model, {0, 1, 2, 3, 4},
                 [&](model::Element element) { return model->setClassification(element, different[element]); });
        EXPECT_EQ(Counts(model).references, 5U) << schema;
        EXPECT_EQ(Counts(model).classifications, 5U) << schema;
    }
}

TEST(EqualClassifications, OfTheFileStayAsTheyAre) {
    for (const std::string_view schema : AllSchemas) {
        Walls walls(schema, 4);
        TinyModel& ifc = walls.ifc;
        const Id system = ifc.classification("UniFormat");
        ifc.classify({walls.ids[0]}, "UniFormat", ifc.classificationReference("B2010", "Walls", system));
        ifc.classify({walls.ids[1]}, "UniFormat", ifc.classificationReference("B2010", "Walls", system));
        Opened model(ifc);
        const std::string before = model->bytes();
        const std::string kept = before.substr(0, before.rfind("ENDSEC"));
        together(model, {2, 3}, [&](model::Element element) {
            return model->setClassification(element, model->classifications(0)->front());
        });
        EXPECT_EQ(model->bytes().substr(0, kept.size()), kept) << schema;
        EXPECT_EQ(Counts(model).references, 3U) << schema;
        EXPECT_EQ(Counts(model).classifications, 3U) << schema;
    }
}

TEST(EqualClassifications, OfElementsThatLeaveARelationAreOneCopyOfIt) {
    for (const std::string_view schema : AllSchemas) {
        Walls walls(schema, 6);
        TinyModel& ifc = walls.ifc;
        ifc.classify(walls.ids, "UniFormat",
                     ifc.classificationReference("B2010", "Walls", ifc.classification("UniFormat")));
        Opened model(ifc);
        const std::string before = model->bytes();
        classify(model, {1, 2, 5}, "C1010");
        EXPECT_EQ(Counts(model).references, 2U) << schema;
        EXPECT_EQ(Counts(model).classifications, 2U) << schema;
        EXPECT_EQ(model.classification(0, "UniFormat"), "B2010{Walls}") << schema;
        EXPECT_EQ(model.classification(5, "UniFormat"), "C1010{Walls}") << schema;
        expectUndoable(model, before);
    }
}

TEST(EqualClassifications, OfAllElementsOfARelationStayInIt) {
    for (const std::string_view schema : AllSchemas) {
        Walls walls(schema, 40);
        TinyModel& ifc = walls.ifc;  // As many as make a long relation.
        ifc.classify(walls.ids, "UniFormat",
                     ifc.classificationReference("B2010", "Walls", ifc.classification("UniFormat")));
        Opened model(ifc);
        const std::string before = model->bytes();
        std::vector<model::Element> all;
        for (model::Element element = 0; element < 40; ++element) all.push_back(element);
        classify(model, all, "C1010");
        EXPECT_EQ(Counts(model).references, 1U) << schema;
        EXPECT_EQ(Counts(model).classifications, 1U) << schema;
        for (const model::Element element : all)
            EXPECT_EQ(model.classification(element, "UniFormat"), "C1010{Walls}") << schema;
        expectUndoable(model, before);
    }
}

TEST(EqualClassifications, AreNotJoinedWhereAnElementWouldListThemInAnotherOrder) {
    for (const std::string_view schema : AllSchemas) {
        Opened model(Walls(schema, 4).ifc);
        const auto ran = model->command("in two orders", [&] {
            for (const model::Element element : {0U, 1U, 2U, 3U}) {
                std::vector<std::string> labels = {"A", "B"};
                if (element % 2 == 1) std::reverse(labels.begin(), labels.end());
                for (const std::string& label : labels)
                    EXPECT_TRUE(model->setClassification(element, model.wantedReference(element, label, "1", "N")));
            }
            return 0;
        });
        ASSERT_TRUE(ran);
        for (const model::Element element : {0U, 1U, 2U, 3U}) {
            const auto listed = *model->classifications(element);
            ASSERT_EQ(listed.size(), 2U) << schema;
            EXPECT_EQ(utf8(listed.front().system), element % 2 == 0 ? "A" : "B") << schema << element;
        }
        EXPECT_EQ(Counts(model).classifications, 3U) << schema;
        EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
    }
}

/// What costs time with their square takes far longer than the limit, what costs it with their number a few seconds.
TEST(EqualClassifications, OfManyElementsAreJoinedInLinearTime) {
    constexpr std::size_t Many = 40'000;
    const testing_support::Stopwatch watch;
    Walls walls("IFC4", Many);
    walls.ifc.classify(walls.ids, "Old", walls.ifc.classificationReference("1", "N", walls.ifc.classification("Old")));
    Opened model(walls.ifc);
    const auto ran = model->command("in two orders, and away from one relation", [&] {
        for (model::Element element = 0; element < Many; ++element) {
            const bool swapped = element % 2 == 1;
            for (const char* label : {swapped ? "B" : "A", swapped ? "A" : "B", "Old"})
                EXPECT_TRUE(model->setClassification(element, model.wantedReference(element, label, "2", "N")));
        }
        return 0;
    });
    ASSERT_TRUE(ran);
    EXPECT_EQ(Counts(model).classifications, 4U);
    EXPECT_EQ(model.classification(Many - 1, "A"), "2{N}");
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

TEST(EqualClassifications, AreNotJoinedAcrossDataSections) {
    std::string text = Walls("IFC4", 4).ifc.text();
    text.insert(text.find("#3="), "ENDSEC;\nDATA;\n");
    Opened model(text);
    classify(model, {0, 1, 2, 3}, "B2010");
    EXPECT_EQ(Counts(model).classifications, 2U);
    EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
}

TEST(EqualClassifications, AreNotJoinedWhereTheOwnersOfTheElementsDiffer) {
    TinyModel ifc("IFC2X3");
    for (int i = 0; i < 2; ++i) ifc.element("IfcWall", "Wall");
    const Id history = ifc.add("IfcOwnerHistory");
    for (int i = 0; i < 2; ++i) ifc.element("IfcWall", "Wall", {{"OwnerHistory", ref(history)}});
    Opened model(ifc);
    classify(model, {0, 1, 2, 3}, "B2010");
    EXPECT_EQ(Counts(model).classifications, 2U);
}

TEST(EqualClassifications, OfACommandThatFailsAreRolledBack) {
    Opened model(Walls("IFC4", 3).ifc);
    const std::string before = model->bytes();
    const auto ran = model->command("fails", [&] {
        for (const model::Element element : {0U, 1U, 2U})
            EXPECT_TRUE(model->setClassification(element, model.wantedReference(element, "L", "1", "N")));
        return 1;
    });
    ASSERT_TRUE(ran);
    EXPECT_EQ(model->bytes(), before);
}

TEST(EqualClassifications, AreRemovedFromOneElementAlone) {
    Opened model(Walls("IFC4", 3).ifc);
    classify(model, {0, 1, 2}, "B2010");
    together(model, {1}, [&](model::Element element) { return model->removeClassification(element, u"UniFormat"); });
    EXPECT_EQ(model.classification(0, "UniFormat"), "B2010{Walls}");
    EXPECT_EQ(model.classification(1, "UniFormat"), "(none)");
    together(model, {0, 2}, [&](model::Element element) { return model->removeClassification(element, u"UniFormat"); });
    EXPECT_EQ(Counts(model).references, 0U);
    EXPECT_EQ(Counts(model).classifications, 0U);
}

TEST(EqualSets, AreEachElementsOwnUnlessSharingIsAskedFor) {
    Opened model(Walls("IFC4", 3).ifc);
    setTwoProperties(model, {0, 1, 2}, "x");
    EXPECT_EQ(Counts(model).sets, 3U);
    EXPECT_EQ(Counts(model).definitions, 3U);
}

TEST(EqualSets, OfOneCommandAreOneSetAndOneRelationWhereAskedFor) {
    for (const std::string_view schema : AllSchemas) {
        Opened model(Walls(schema, 4).ifc);
        model->shareNewSets(true);
        const std::string before = model->bytes();
        setTwoProperties(model, {0, 1, 3}, "x");
        EXPECT_EQ(Counts(model).sets, 1U) << schema;
        EXPECT_EQ(Counts(model).definitions, 1U) << schema;
        EXPECT_EQ(countOf(model->bytes(), "=IFCPROPERTYSINGLEVALUE("), 2U) << schema;
        EXPECT_EQ(model.property(3, "S", "P"), "x") << schema;
        EXPECT_EQ(model.property(2, "S", "P"), "(none)") << schema;
        expectUndoable(model, before);
    }
}

TEST(EqualSets, AreSplitByALaterChangeOfOne) {
    for (const std::string_view schema : AllSchemas) {
        Opened model(Walls(schema, 3).ifc);
        model->shareNewSets(true);
        setTwoProperties(model, {0, 1, 2}, "x");
        const std::string before = model->bytes();
        setTwoProperties(model, {1}, "y");
        EXPECT_EQ(model.property(0, "S", "P"), "x") << schema;
        EXPECT_EQ(model.property(1, "S", "P"), "y") << schema;
        EXPECT_EQ(model.property(1, "S", "Q"), "q") << schema;
        EXPECT_EQ(Counts(model).sets, 2U) << schema;
        expectUndoable(model, before);
    }
}

TEST(EqualSets, AreNotJoinedWithOthersThatDifferInAValue) {
    Opened model(Walls("IFC4", 4).ifc);
    model->shareNewSets(true);
    together(model, {0, 1, 2, 3}, [&](model::Element element) {
        return model->setProperty(element, model.wantedProperty(element, "S", "P", element < 2 ? "x" : "y"));
    });
    EXPECT_EQ(Counts(model).sets, 2U);
    EXPECT_EQ(model.property(1, "S", "P"), "x");
    EXPECT_EQ(model.property(2, "S", "P"), "y");
}

TEST(EqualSets, OfElementsThatLeaveARelationAreOneCopyAndKeepWhatTheFileHad) {
    for (const std::string_view schema : AllSchemas) {
        Walls walls(schema, 5);
        TinyModel& ifc = walls.ifc;
        const Id p = ifc.single("P", "IFCLABEL('old')"), q = ifc.single("Q", "IFCLABEL('q')");
        ifc.give(walls.ids, ifc.set("S", {p, q}));
        Opened model(ifc);
        model->shareNewSets(true);
        const std::string before = model->bytes();
        setTwoProperties(model, {0, 1, 2}, "new");
        EXPECT_EQ(Counts(model).sets, 2U) << schema;
        EXPECT_EQ(Counts(model).definitions, 2U) << schema;
        EXPECT_EQ(model.property(2, "S", "P"), "new") << schema;
        EXPECT_EQ(model.property(3, "S", "P"), "old") << schema;
        expectUndoable(model, before);
        setTwoProperties(model, {3, 4}, "new");
        EXPECT_EQ(model.property(4, "S", "P"), "new") << schema;
        EXPECT_EQ(model.property(4, "S", "Q"), "q") << schema;
        EXPECT_THAT(model->bytes(), HasSubstr(ref(p) + "=IFCPROPERTYSINGLEVALUE(")) << schema;
        EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot()) << schema;
    }
}

TEST(EqualSets, OfAllElementsOfARelationStayInIt) {
    for (const std::string_view schema : AllSchemas) {
        Walls walls(schema, 3);
        TinyModel& ifc = walls.ifc;
        ifc.give(walls.ids, ifc.set("S", {ifc.single("P", "IFCLABEL('old')"), ifc.single("Q", "IFCLABEL('q')")}));
        Opened model(ifc);
        model->shareNewSets(true);
        const std::string before = model->bytes();
        setTwoProperties(model, {0, 1, 2}, "new");
        EXPECT_EQ(Counts(model).sets, 1U) << schema;
        EXPECT_EQ(Counts(model).definitions, 1U) << schema;
        EXPECT_EQ(model.property(2, "S", "P"), "new") << schema;
        expectUndoable(model, before);
    }
}

}  // namespace
