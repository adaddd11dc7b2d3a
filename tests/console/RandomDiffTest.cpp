// A model with random updates, and the update file that diff makes of it: imported into the first model it gives the
// second one's data, but for what diff said it would not.

#include "ConsoleTest.hpp"

#include "model/Model.hpp"
#include "support/Places.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <random>
#include <set>

namespace console_tests {
namespace {

const Fields Texts = {"F 90",
                      "12",
                      "-1.50",
                      "true",
                      ".T.",
                      "0x10",
                      "a{b}",
                      "{",
                      "Größe 2 m²",
                      "it's",
                      "\\X2\\00E9",
                      "x\ty",
                      "line\nend",
                      "",
                      " ",
                      "1e5",
                      "1E400",
                      "2024-05-17",
                      "yes",
                      "NOTDEFINED",
                      "漢字",
                      "\xF0\x9F\x8F\xA0",
                      std::string(255, 'x'),
                      std::string(256, 'x'),
                      std::string(2100, 'x')};
const Fields Numbers = {"0.1", "0.1234567", "0.123457",           "0.1234565", "5", "5.0",
                        "-7",  "1e-7",      "123456789012345678", "1e20",      "0"};
const Fields Truths = {"true", "false", "unknown"};
const Fields Sets = {"Pset_WallCommon", "Pset_DoorCommon", "Pset_Extra", "Survey", "Pset_"};
const Fields Names = {"FireRating", "IsExternal", "Name", "Note", "AcousticRating", "a[b", "ThermalTransmittance"};
const Fields Types = {"IfcLabel", "IfcText", "IfcReal", "IfcInteger", "IfcBoolean", "IfcLogical", "IfcIdentifier"};
const Fields Systems = {"UniFormat Classification", "SpecSection Classification", "Uniclass"};

/// Changes a model at random, in whatever way it lets itself be changed.
class Changer {
public:
    Changer(model::Model& model, std::uint32_t seed) : model_(model), random_(seed) {}

    void run(std::size_t times) {
        const auto ran = model_.command("random", [&] {
            for (std::size_t i = 0; i < times; ++i) change(static_cast<model::Element>(below(model_.elementCount())));
            return 0;
        });
        ASSERT_TRUE(ran);
    }

private:
    std::size_t below(std::size_t end) { return random_() % end; }
    const std::string& pick(const Fields& fields) { return fields[below(fields.size())]; }
    std::u16string text() { return text::fromUtf8(pick(below(3) == 0 ? Numbers : below(4) == 0 ? Truths : Texts)); }

    /// What is refused is refused.
    void change(model::Element element) {
        switch (below(5)) {
            case 0:
                return changeAttribute(element);
            case 1:
                return changeClassification(element);
            case 2:
                return addProperty(element);
            default:
                return changeProperty(element);
        }
    }
    void changeAttribute(model::Element element) {
        const auto attributes = model_.attributes(element);
        (void)model_.setAttribute(element, (*attributes)[below(attributes->size())].name, text());
    }
    void changeClassification(model::Element element) {
        const auto held = model_.classifications(element);
        model::ClassificationReference reference;
        reference.system = text::fromUtf8(pick(Systems));
        if (!held->empty() && below(2) == 0) reference = (*held)[below(held->size())];
        if (below(4) == 0) {
            (void)model_.removeClassification(element, reference.system);
            return;
        }
        reference.itemReference = text();
        if (below(2) == 0) reference.name = text();
        (void)model_.setClassification(element, reference);
    }
    void changeProperty(model::Element element) {
        const auto held = model_.properties(element);
        if (held->empty()) return addProperty(element);
        const model::Property& property = (*held)[below(held->size())];
        (void)model_.setPropertyText(element, {property.set, property.name, text(), ""});
    }
    void addProperty(model::Element element) {
        (void)model_.setPropertyText(element,
                                     {text::fromUtf8(pick(Sets)), text::fromUtf8(pick(Names)), text(), pick(Types)});
    }

    model::Model& model_;
    std::mt19937 random_;
};

class RandomDiff : public ConsoleTest, public testing::WithParamInterface<std::string> {
protected:
    void makeOther(std::uint32_t seed, std::size_t changes) {
        std::filesystem::copy_file(GetParam(), folder_.path() / "a.ifc",
                                   std::filesystem::copy_options::overwrite_existing);
        auto model = model::Model::open(folder_.path() / "a.ifc");
        ASSERT_TRUE(model);
        Changer(**model, seed).run(changes);
        ASSERT_TRUE((*model)->save(folder_.path() / "b.ifc"));
    }

    /// "GUID kind item set new" of each change, those alone that are writable or not, or all.
    std::multiset<std::string> changes(const Json& document, std::optional<bool> writable = {}) {
        std::multiset<std::string> found;
        for (const Json& element : document["changed"]) {
            for (const Json& change : element["changes"]) {
                if (writable && change["writable"] != *writable) continue;
                found.insert(element["guid"].get<std::string>() + change["kind"].dump() + change["item"].dump() +
                             change["set"].dump() + change["new"].dump());
            }
        }
        return found;
    }
};

TEST_P(RandomDiff, AsUpdatesGivesTheOtherModelsData) {
    std::size_t writable = 0;
    for (std::uint32_t seed = 0; seed < 4; ++seed) {
        SCOPED_TRACE(seed);
        makeOther(seed, 60);
        const Json before = json({"diff", "a.ifc", "b.ifc"});
        ASSERT_EQ(run({"diff", "a.ifc", "b.ifc", "--format", "updates", "-o", "u.txt"}).status, 0);
        const Json rows = json({"import", "a.ifc", "u.txt", "--exact", "--apply", "-o", "c.ifc"});
        // Not one is refused or passed over.
        EXPECT_EQ(rows["summary"]["done"], changes(before, true).size());
        const auto left = changes(json({"diff", "c.ifc", "b.ifc"})), expected = changes(before, false);
        Fields more, less;
        std::set_difference(left.begin(), left.end(), expected.begin(), expected.end(), std::back_inserter(more));
        std::set_difference(expected.begin(), expected.end(), left.begin(), left.end(), std::back_inserter(less));
        EXPECT_THAT(more, IsEmpty());
        EXPECT_THAT(less, IsEmpty());
        writable += changes(before, true).size();
    }
    EXPECT_GT(writable, 20U);
}

INSTANTIATE_TEST_SUITE_P(Models, RandomDiff, testing::ValuesIn(testing_support::models()),
                         testing_support::nameOfModel);

}  // namespace
}  // namespace console_tests
