#include "TinyModel.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

namespace {

using model::ClassificationReference;
using model::ErrorKind;
using testing::HasSubstr;

const std::string_view AllSchemas[] = {"IFC2X3", "IFC4", "IFC4X3"};

std::vector<std::string> labels(Opened& model, model::Element element) {
    std::vector<std::string> result;
    const auto references = model->classifications(element);
    for (const auto& reference : *references) result.push_back(utf8(reference.system));
    return result;
}

TEST(Classifications, ShowReferenceAndSource) {
    for (const std::string_view schema : AllSchemas) {
        TinyModel ifc{std::string(schema)};
        const Id wall = ifc.element("IfcWall", "Wall");
        const Id reference = ifc.classificationReference("B2010", "Exterior Walls", ifc.classification("UniFormat"));
        ifc.classify({wall}, "UniFormat Classification", reference);
        Opened model(ifc);
        const auto references = model->classifications(0);
        ASSERT_EQ(references->size(), 1U) << schema;
        const ClassificationReference& only = references->front();
        EXPECT_EQ(only.system, u"UniFormat Classification");
        EXPECT_EQ(only.itemReference, u"B2010");
        EXPECT_EQ(only.name, u"Exterior Walls");
        EXPECT_EQ(only.location, std::nullopt);
        EXPECT_EQ(only.source, u"Publisher");
        EXPECT_EQ(only.edition, u"1");
        EXPECT_EQ(only.classificationName, u"UniFormat");
    }
}

TEST(Classifications, AreLabelledByTheClassificationWhereTheRelationHasNoName) {
    for (const std::string_view schema : AllSchemas) {
        TinyModel ifc{std::string(schema)};
        const Id wall = ifc.element("IfcWall", "Wall");
        ifc.classify({wall}, "", ifc.classificationReference("1", "One", ifc.classification("DIN 276")));
        ifc.classify({wall}, "", ifc.classificationReference("2", "Two", 0));
        Opened model(ifc);
        EXPECT_THAT(labels(model, 0), testing::ElementsAre("DIN 276", "")) << schema;
    }
}

TEST(Classifications, OfTheTypeFollowWhereTheElementHasNoneOfThatLabel) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    const Id type = ifc.type({wall}, {});
    const Id system = ifc.classification("S");
    ifc.classify({type}, "B", ifc.classificationReference("b", "typed", system));
    ifc.classify({type}, "A", ifc.classificationReference("a", "typed", system));
    ifc.classify({wall}, "A", ifc.classificationReference("a", "own", system));
    Opened model(ifc);
    EXPECT_THAT(labels(model, 0), testing::ElementsAre("A", "B"));
    EXPECT_EQ(model.classification(0, "A"), "a{own}");
    EXPECT_EQ(model.classification(0, "B"), "b{typed}");
}

TEST(Classifications, FollowTheChainOfSourcesToItsEnd) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    const Id root = ifc.classificationReference("1", "Root", ifc.classification("System"));
    const Id branch = ifc.classificationReference("1.1", "Branch", root);
    ifc.classify({wall}, "", ifc.classificationReference("1.1.1", "Leaf", branch));
    Opened model(ifc);
    EXPECT_THAT(labels(model, 0), testing::ElementsAre("System"));
    EXPECT_EQ(model.classification(0, "System"), "1.1.1{Leaf}");
}

TEST(Classifications, OfACircleOfSourcesHaveNoSystem) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.raw("IFCCLASSIFICATIONREFERENCE($,'a','A',#3,$,$)");
    ifc.raw("IFCCLASSIFICATIONREFERENCE($,'b','B',#2,$,$)");
    ifc.classify({wall}, "Round", 2);
    Opened model(ifc);
    EXPECT_EQ(model.classification(0, "Round"), "a{A}");
    EXPECT_EQ((*model->classifications(0))[0].classificationName, u"");
}

TEST(Classifications, MayNameTheSystemAloneAndGetAnEntry) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id system = ifc.classification("System");
    ifc.classify({wall, other}, "Label", system);
    Opened model(ifc);
    EXPECT_EQ(model.classification(0, "Label"), "${$}");
    ASSERT_TRUE(model.classify(0, "Label", "x", "X"));
    EXPECT_EQ(model.classification(0, "Label"), "x{X}");
    EXPECT_EQ((*model->classifications(0))[0].classificationName, u"System");
    EXPECT_EQ(model.classification(1, "Label"), "${$}");
}

TEST(Classifications, NotationsOfIfc2x3AreLeftAlone) {
    TinyModel ifc("IFC2X3");
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.classify({wall}, "Notation", ifc.add("IfcClassificationNotation", {{"NotationFacets", "()"}}));
    Opened model(ifc);
    EXPECT_TRUE(labels(model, 0).empty());
}

/// A way of sharing: how the wall comes by "Label", with B2010{Walls}, and who else uses it.
struct Sharing {
    std::string_view name;
    std::function<void(TinyModel&, Id wall, Id other)> build;
    int added;    ///< Instances, where one element gets another classification,
    int removed;  ///< and where it gets none.
};

const Sharing Forms[] = {
    {"nobody",
     [](TinyModel& ifc, Id wall, Id) {
         ifc.classify({wall}, "Label", ifc.classificationReference("B2010", "Walls", ifc.classification("S")));
     },
     0, 2},
    {"the relation names another element",
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.classify({wall, other}, "Label", ifc.classificationReference("B2010", "Walls", ifc.classification("S")));
     },
     2, 0},
    {"another relation names the reference",
     [](TinyModel& ifc, Id wall, Id other) {
         const Id reference = ifc.classificationReference("B2010", "Walls", ifc.classification("S"));
         ifc.classify({wall}, "Label", reference);
         ifc.classify({other}, "Label", reference);
     },
     1, 1},
    {"the element has it under another label, too",
     [](TinyModel& ifc, Id wall, Id) {
         const Id reference = ifc.classificationReference("B2010", "Walls", ifc.classification("S"));
         ifc.classify({wall}, "Label", reference);
         ifc.classify({wall}, "Other label", reference);
     },
     1, 1},
    {"the type object has it, too",
     [](TinyModel& ifc, Id wall, Id other) {
         const Id type = ifc.type({wall, other}, {});
         ifc.classify({type, wall}, "Label", ifc.classificationReference("B2010", "Walls", ifc.classification("S")));
     },
     2, 0},
    {"only the type object has it",
     [](TinyModel& ifc, Id wall, Id other) {
         const Id type = ifc.type({wall, other}, {});
         ifc.classify({type}, "Label", ifc.classificationReference("B2010", "Walls", ifc.classification("S")));
     },
     2, 0},
    {"it is the source of another reference",
     [](TinyModel& ifc, Id wall, Id other) {
         const Id reference = ifc.classificationReference("B2010", "Walls", ifc.classification("S"));
         ifc.classify({wall}, "Label", reference);
         if (ifc.schema == "IFC2X3") {
             ifc.raw("IFCFUTURERELATION(" + ref(reference) + ")");
         } else {
             ifc.classify({other}, "Label", ifc.classificationReference("B2010.1", "Thin walls", reference));
         }
     },
     1, 1},
};

TEST(SetClassification, ChangesNothingForOthersWhateverTheyShare) {
    for (const Sharing& form : Forms) {
        for (const std::string_view schema : AllSchemas) {
            SCOPED_TRACE(std::string(schema) + ", " + std::string(form.name));
            TinyModel ifc{std::string(schema)};
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            form.build(ifc, wall, other);
            Opened model(ifc);
            const auto before = model.snapshot();
            const std::string otherLabel = model.classification(0, "Other label");
            ASSERT_TRUE(model.classify(0, "Label", "C1010", "Partitions"));
            EXPECT_EQ(model.classification(0, "Label"), "C1010{Partitions}");
            EXPECT_EQ(model.classification(0, "Other label"), otherLabel);
            EXPECT_EQ(model.data(1), before[1]);
            const std::string bytes = model->bytes(), original = ifc.text();
            EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '=') - std::count(original.begin(), original.end(), '='),
                      form.added);
            EXPECT_EQ(Opened(bytes).snapshot(), model.snapshot());
            EXPECT_TRUE(model->undo());
            EXPECT_EQ(model->bytes(), original);
            EXPECT_EQ(model.snapshot(), before);
        }
    }
}

TEST(RemoveClassification, TakesNothingFromOthersWhateverTheyShare) {
    for (const Sharing& form : Forms) {
        for (const std::string_view schema : AllSchemas) {
            SCOPED_TRACE(std::string(schema) + ", " + std::string(form.name));
            TinyModel ifc{std::string(schema)};
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            form.build(ifc, wall, other);
            Opened model(ifc);
            const auto before = model.snapshot();
            const std::string otherLabel = model.classification(0, "Other label");
            const bool ofTypeAlone = form.name == "only the type object has it";
            model::Status removed;
            ASSERT_TRUE(model->command("remove", [&] {
                removed = model->removeClassification(0, u"Label");
                return 0;
            }));
            EXPECT_EQ(static_cast<bool>(removed), !ofTypeAlone);
            // What the element had itself hid what its type has.
            const bool inherits = form.name.starts_with("the type") || ofTypeAlone;
            EXPECT_EQ(model.classification(0, "Label"), inherits ? "B2010{Walls}" : "(none)");
            EXPECT_EQ(model.classification(0, "Other label"), otherLabel);
            EXPECT_EQ(model.data(1), before[1]);
            const std::string bytes = model->bytes(), original = ifc.text();
            EXPECT_EQ(std::count(original.begin(), original.end(), '=') - std::count(bytes.begin(), bytes.end(), '='),
                      form.removed);
            EXPECT_EQ(Opened(bytes).snapshot(), model.snapshot());
            EXPECT_EQ(model->undo(), !ofTypeAlone);
            EXPECT_EQ(model->bytes(), original);
            EXPECT_EQ(model.snapshot(), before);
        }
    }
}

TEST(RemoveClassification, OfALabelThatTheElementHasNotChangesNothing) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    ASSERT_TRUE(model->command("remove", [&] { return model->removeClassification(0, u"Label") ? 0 : 1; }));
    EXPECT_EQ(model->bytes(), ifc.text());
    EXPECT_FALSE(model->undo());
}

TEST(SetClassification, AnEqualValueChangesNothing) {
    for (const Sharing& form : Forms) {
        for (const std::string_view schema : AllSchemas) {
            TinyModel ifc{std::string(schema)};
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            form.build(ifc, wall, other);
            Opened model(ifc);
            EXPECT_TRUE(model.classify(0, "Label", "B2010", "Walls"));
            EXPECT_EQ(model->bytes(), ifc.text()) << schema << ", " << form.name;
        }
    }
}

ClassificationReference newReference() {
    return {u"UniFormat Classification",
            u"example.org/uniformat",
            u"Walls",
            u"B2010",
            u"example.org/uniformat",
            u"",
            u"UniFormat"};
}

TEST(SetClassification, AddsRelationReferenceAndSystemWhereThereIsNone) {
    for (const std::string_view schema : AllSchemas) {
        TinyModel ifc{std::string(schema)};
        ifc.element("IfcWall", "Wall");
        ifc.element("IfcWall", "Other");
        Opened model(ifc);
        ASSERT_TRUE(model.setClassification(0, newReference())) << schema;
        const auto references = model->classifications(0);
        ASSERT_EQ(references->size(), 1U);
        EXPECT_EQ(references->front().location, u"example.org/uniformat");
        EXPECT_EQ(references->front().source, u"example.org/uniformat");
        EXPECT_EQ(references->front().edition, u"");
        EXPECT_EQ(references->front().classificationName, u"UniFormat");
        EXPECT_EQ(model.classification(0, "UniFormat Classification"), "B2010{Walls}");
        EXPECT_EQ(model.classification(1, "UniFormat Classification"), "(none)");
        ASSERT_TRUE(model.setClassification(1, newReference()));
        const std::string bytes = model->bytes();
        EXPECT_EQ(bytes.find("IFCCLASSIFICATION("), bytes.rfind("IFCCLASSIFICATION(")) << "the system is used again";
        EXPECT_EQ(Opened(bytes).snapshot(), model.snapshot());
    }
}

TEST(SetClassification, TakesAnotherSystemWithoutChangingTheSharedOne) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id system = ifc.classification("Old system");
    ifc.classify({wall}, "Label", ifc.classificationReference("1", "One", system));
    ifc.classify({other}, "Label", ifc.classificationReference("1", "One", system));
    Opened model(ifc);
    const std::string before = model.data(1);
    auto wanted = (*model->classifications(0))[0];
    wanted.classificationName = u"New system";
    wanted.location = u"there";
    ASSERT_TRUE(model.setClassification(0, wanted));
    EXPECT_EQ((*model->classifications(0))[0].classificationName, u"New system");
    EXPECT_EQ((*model->classifications(0))[0].location, u"there");
    EXPECT_EQ(model.data(1), before);
}

TEST(SetClassification, AnEmptyNameIsNotNoName) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.classify({wall}, "Label", ifc.classificationReference("1", "One", 0));
    Opened model(ifc);
    ASSERT_TRUE(model.classify(0, "Label", "1", ""));
    EXPECT_THAT(model->bytes(), HasSubstr("IFCCLASSIFICATIONREFERENCE($,'1','',$,$,$)"));
    auto wanted = (*model->classifications(0))[0];
    EXPECT_EQ(wanted.name, u"");
    wanted.name.reset();
    ASSERT_TRUE(model.setClassification(0, wanted));
    EXPECT_THAT(model->bytes(), HasSubstr("IFCCLASSIFICATIONREFERENCE($,'1',$,$,$,$)"));
}

TEST(SetClassification, IsRefusedWithTheReason) {
    const std::u16string tooLong(256, u'x');
    struct Row {
        ClassificationReference reference;
        ErrorKind kind;
        std::string_view message;
    };
    auto noLabel = newReference(), longLabel = newReference(), longItem = newReference(), longName = newReference(),
         longSource = newReference();
    noLabel.system = u"";
    longLabel.system = tooLong;
    longItem.itemReference = tooLong;
    longName.name = tooLong;
    longSource.source = tooLong;
    const Row table[] = {{noLabel, ErrorKind::BadName, "has no label"},
                         {longLabel, ErrorKind::BadName, "IfcLabel holds at most 255"},
                         {longItem, ErrorKind::BadValue, "Identification"},
                         {longName, ErrorKind::BadValue, "IfcLabel holds at most 255"},
                         {longSource, ErrorKind::BadValue, "Source"}};
    for (const Row& row : table) {
        TinyModel ifc;
        ifc.element("IfcWall", "Wall");
        Opened model(ifc);
        const auto status = model.setClassification(0, row.reference);
        ASSERT_FALSE(status) << row.message;
        EXPECT_EQ(status.error().kind, row.kind);
        EXPECT_THAT(status.error().message, HasSubstr(std::string(row.message)));
        EXPECT_EQ(model->bytes(), ifc.text());
    }
}

TEST(SetClassification, ThatCannotBeDecodedIsNotOverwrittenBlindly) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.classify({wall}, "Label", ifc.raw("IFCCLASSIFICATIONREFERENCE($,'1','\\X2\\00',$,$,$)"));
    Opened model(ifc);
    const auto status = model.classify(0, "Label", "2", "Two");
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::Refused);
    EXPECT_EQ(model->bytes(), ifc.text());
}

}  // namespace
