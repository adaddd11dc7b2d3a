// Whatever a file repeats, very often: the same instance in a list, sets of one name, links of a chain. Time must grow
// with the file, not with its square. At these sizes the square takes minutes.

#include "TinyModel.hpp"
#include "support/Stopwatch.hpp"
#include "text/Guid.hpp"

#include <gtest/gtest.h>

#include <functional>

namespace {

void listAll(Opened& model) {
    std::size_t count = 0;
    model->visitProperties(0, [&](const model::PropertyView&) { ++count; });
    EXPECT_TRUE(model->classifications(0)) << count;
}

/// Opens the file, runs the updates as one command, lists everything before and after, and writes it.
void expectQuick(const std::string& text, double seconds, const std::function<void(Opened&)>& updates) {
    const testing_support::Stopwatch watch;
    Opened model(text);
    listAll(model);
    ASSERT_TRUE(model->command("updates", [&] {
        updates(model);
        return 0;
    }));
    listAll(model);
    EXPECT_NE(model->bytes(), text);
    ASSERT_TRUE(model->undo());
    EXPECT_LT(watch.seconds(), seconds * testing_support::Slowness);
    EXPECT_EQ(model->bytes(), text);
}

void setOne(Opened& model, std::u16string set, std::u16string name) {
    model::Property wanted{std::move(set), std::move(name), model::PropertyKind::Single, false, {}};
    wanted.value.type = "IfcLabel";
    wanted.value.string = u"new";
    const auto status = model->setProperty(0, wanted);
    EXPECT_TRUE(status) << status.error().message;
}

void setP(Opened& model) {
    setOne(model, u"B", u"P");
}

void addTwenty(Opened& model) {
    for (int i = 0; i < 20; ++i) setOne(model, u"A", utf16("X" + std::to_string(i)));
}

Id label(TinyModel& ifc, const std::string& name) {
    return ifc.single(name, "IFCLABEL('v')");
}

Ids labels(TinyModel& ifc, const std::string& prefix, std::size_t count) {
    Ids ids;
    for (std::size_t i = 0; i < count; ++i) ids.push_back(label(ifc, prefix + std::to_string(i)));
    return ids;
}

TEST(Repeated, SetInASetOfSets) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    const Id set = ifc.set("B", {label(ifc, "P")});
    ifc.type({wall}, {set});
    ifc.giveSetOfSets({wall}, Ids(20'000, set));
    expectQuick(ifc.text(), 2, setP);
}

TEST(Repeated, SetInATypeObjectIsListedOnce) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    const Id set = ifc.set("B", labels(ifc, "P", 5000));
    ifc.type({wall}, Ids(20'000, set));
    EXPECT_EQ(Opened(ifc)->properties(0)->size(), 5000U);
    expectQuick(ifc.text(), 2, setP);
}

TEST(Repeated, PropertyInASetIsListedOnce) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    const Id property = ifc.single("P", "IFCTEXT('" + std::string(100'000, 'x') + "')");
    const Id set = ifc.set("B", Ids(10'000, property));
    ifc.set("C", {property});
    ifc.give({wall}, set);
    EXPECT_EQ(Opened(ifc)->properties(0)->size(), 1U);
    expectQuick(ifc.text(), 2, setP);
}

TEST(Repeated, ComplexPropertyInASet) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    const Id complex = ifc.add("IfcComplexProperty", {{"Name", "'" + std::string(100'000, 'x') + "'"},
                                                      {"HasProperties", refs({label(ifc, "P")})}});
    ifc.give({wall}, ifc.set("A", Ids(10'000, complex)));
    expectQuick(ifc.text(), 2, addTwenty);
}

TEST(Repeated, ElementInARelation) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W"), other = ifc.element("IfcWall", "W2");
    Ids elements(150'000, wall);
    elements.push_back(other);
    ifc.give(elements, ifc.set("B", {label(ifc, "P")}));
    ifc.classify(elements, "L", ifc.classificationReference("1", "One", 0));
    expectQuick(ifc.text(), 2, [](Opened& model) {
        setP(model);
        EXPECT_TRUE(model->setClassification(0, model.wantedReference(0, "L", "2", "Two")));
    });
}

TEST(Repeated, LinksOfOneChainOfClassifications) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    constexpr std::size_t Links = 4000;
    Id last = ifc.classification("Root");
    for (std::size_t i = 0; i < Links; ++i) last = ifc.classificationReference("1", "One", last);
    for (std::size_t i = 0; i < Links; ++i) ifc.classify({wall}, "S" + std::to_string(i), last - i % 7);
    Opened model(ifc);
    EXPECT_EQ(model->classifications(0)->back().classificationName, u"Root");
    expectQuick(ifc.text(), 2,
                [](Opened& m) { EXPECT_TRUE(m->setClassification(0, m.wantedReference(0, "S3", "2", "Two"))); });
}

TEST(Repeated, ClassificationsOfElementAndType) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    const Id type = ifc.type({wall}, {});
    const Id reference = ifc.classificationReference("1", "One", 0);
    for (std::size_t i = 0; i < 20'000; ++i) {
        ifc.classify({wall}, "own " + std::to_string(i), reference);
        ifc.classify({type}, "type " + std::to_string(i), reference);
    }
    expectQuick(ifc.text(), 2, [](Opened& model) {
        EXPECT_TRUE(model->setClassification(0, model.wantedReference(0, "own 7", "2", "Two")));
    });
}

TEST(Repeated, SetsOfOneName) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    Ids sets;
    for (std::size_t i = 0; i < 40'000; ++i) sets.push_back(ifc.set("A", {}));
    ifc.giveSetOfSets({wall}, sets);
    expectQuick(ifc.text(), 2, addTwenty);
}

TEST(Repeated, SetsOfOneNameOnElementAndType) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    Ids own, type;
    for (std::size_t i = 0; i < 20'000; ++i) {
        own.push_back(ifc.set("A", {}));
        type.push_back(ifc.set("A", {}));
    }
    type.push_back(ifc.set("A", labels(ifc, "t", 20'000)));
    ifc.giveSetOfSets({wall}, own);
    ifc.type({wall}, type);
    expectQuick(ifc.text(), 2, addTwenty);
}

TEST(Repeated, PropertiesOfElementAndTypeInOneSet) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "W");
    ifc.give({wall}, ifc.set("A", labels(ifc, "o", 20'000)));
    ifc.type({wall}, {ifc.set("A", labels(ifc, "t", 20'000))});
    expectQuick(ifc.text(), 2, addTwenty);
}

TEST(Repeated, OverridesOfOneSet) {
    TinyModel ifc("IFC2X3");
    const Id wall = ifc.element("IfcWall", "W");
    const Ids properties = labels(ifc, "o", 40'000);
    ifc.overrideProperties({wall}, ifc.set(std::string(20'000, 'A'), properties), properties);
    expectQuick(ifc.text(), 2, [](Opened& model) { setOne(model, std::u16string(20'000, u'A'), u"o7"); });
}

TEST(Repeated, OverridesOfManySets) {
    TinyModel ifc("IFC2X3");
    const Id wall = ifc.element("IfcWall", "W");
    const Id property = label(ifc, "P");
    Id last = 0;
    for (std::size_t i = 0; i < 10'000; ++i) {
        last = ifc.set("S" + std::to_string(i), {property});
        ifc.overrideProperties({wall}, last, {property});
    }
    expectQuick(ifc.text(), 2, [](Opened& model) { setOne(model, u"S9999", u"P"); });
}

/// GlobalIds that all had one hash, as long as it had no key.
TEST(Repeated, HashesOfGlobalIds) {
    TinyModel ifc;
    ifc.element("IfcWall", "W");
    for (std::uint64_t i = 0; i < 80'000; ++i) {
        const std::uint64_t low = i * 0x9E3779B97F4A7C15U;
        const std::uint64_t high = 0x0123456789ABCDEFU ^ (low << 32U | low >> 32U);
        model::Guid guid{};
        for (std::size_t byte = 0; byte < 8; ++byte) {
            guid[byte] = static_cast<std::uint8_t>(high >> (8 * byte));
            guid[8 + byte] = static_cast<std::uint8_t>(low >> (8 * byte));
        }
        ifc.raw("IFCWALL('" + text::toGlobalId(guid) + "',$,$,$,$,$,$,$,$)");
    }
    expectQuick(ifc.text(), 2, setP);
}

TEST(Repeated, UpdatesInOneSetOfOneElementThatListAllEachTime) {
    TinyModel ifc;
    ifc.element("IfcWall", "W");
    expectQuick(ifc.text(), 6, [](Opened& model) {
        std::size_t found = 0;
        for (int i = 0; i < 8000; ++i) {
            const std::u16string name = utf16("P" + std::to_string(i));
            model->visitProperties(0, [&](const model::PropertyView& property) { found += property.name == name; });
            setOne(model, u"A", name);
        }
        EXPECT_EQ(found, 0U);
        EXPECT_EQ(model->properties(0)->size(), 8000U);
    });
}

}  // namespace
