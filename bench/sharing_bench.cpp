// Rows applied to what many elements share, or one element has much of: the cost of one must not grow with their
// number. The models are made here; the number beside a case's name is that of the elements (or properties) concerned.

#include "model/Model.hpp"
#include "text/Guid.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

namespace {

constexpr std::int64_t MostRows = 1000;

std::u16string wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

/// The text of a file with `count` walls, ids from 1001 on.
class Estate {
public:
    explicit Estate(std::int64_t count) {
        for (std::int64_t i = 0; i < count; ++i) {
            add(FirstWall + i, "IFCWALL('" + globalId() + "',$,'Wall',$,$,$,$,$,$)");
            walls += (i == 0 ? "#" : ",#") + std::to_string(FirstWall + i);
        }
    }

    /// Lets a relation name all walls.
    Estate& relate(const std::string& relation, std::int64_t id, int relating) {
        add(id, relation + "('" + globalId() + "',$,'System',$,(" + walls + "),#" + std::to_string(relating) + ")");
        return *this;
    }

    Estate& add(std::int64_t id, const std::string& body) {
        data += '#' + std::to_string(id) + '=' + body + ";\n";
        return *this;
    }

    std::string globalId() {
        model::Guid guid{};
        const std::uint64_t number = ++roots;
        for (unsigned i = 0; i < 8; ++i) guid[8 + i] = static_cast<std::uint8_t>(number >> 8U * (7 - i));
        return text::toGlobalId(guid);
    }

    std::unique_ptr<model::Model> open() const {
        auto opened = model::Model::fromBytes(
            "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
            "FILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n" +
            data + "ENDSEC;\nEND-ISO-10303-21;\n");
        return opened ? std::move(*opened) : nullptr;
    }

private:
    static constexpr std::int64_t FirstWall = 1001;
    std::uint64_t roots = 0;
    std::string walls, data;
};

model::Property label(const std::string& set, const std::string& name, const std::string& value) {
    model::Property property{wide(set), wide(name), model::PropertyKind::Single, false, {}};
    property.value.type = "IfcLabel";
    property.value.string = wide(value);
    return property;
}

/// edit(model, row) for the rows from `first` to `end`, in one command. @return false where one was refused.
template <class Edit>
bool applyInCommand(model::Model& model, std::int64_t first, std::int64_t end, Edit& edit) {
    const auto failed = model.command("Rows", [&] {
        for (std::int64_t row = first; row < end; ++row) {
            if (!edit(model, row)) return 1;
        }
        return 0;
    });
    return failed && *failed == 0;
}

/// The time of a row: edit(model, row) for each of them, so many in a command. All is then undone.
template <class Edit>
void applyRows(benchmark::State& state, const Estate& estate, std::int64_t rows, std::int64_t perCommand, Edit&& edit) {
    const auto model = estate.open();
    if (!model || !model->properties(0)) return state.SkipWithError("the model cannot be read");
    double total = 0, count = 0;
    for ([[maybe_unused]] auto iteration : state) {
        const auto start = std::chrono::steady_clock::now();
        bool done = true;
        for (std::int64_t row = 0; row < rows && done; row += perCommand) {
            done = applyInCommand(*model, row, std::min(row + perCommand, rows), edit);
        }
        const double time = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (!done) return state.SkipWithError("a row was refused");
        while (model->undo()) {
        }
        state.SetIterationTime(time);
        total += time;
        count += static_cast<double>(rows);
    }
    state.counters["us/row"] = total / count * 1e6;
}

/// The same with all rows in one command.
template <class Edit>
void applyRows(benchmark::State& state, const Estate& estate, std::int64_t rows, Edit&& edit) {
    applyRows(state, estate, rows, rows, edit);
}

/// A set that one relation gives to all.
void sharedSet(benchmark::State& state, std::int64_t rows, std::int64_t perCommand) {
    Estate estate(state.range(0));
    estate.add(1, "IFCPROPERTYSINGLEVALUE('Status',$,IFCLABEL('new'),$)");
    estate.add(2, "IFCPROPERTYSET('" + estate.globalId() + "',$,'Set',$,(#1))")
        .relate("IFCRELDEFINESBYPROPERTIES", 3, 2);
    applyRows(state, estate, rows, perCommand, [](model::Model& model, std::int64_t row) {
        return bool(model.setProperty(static_cast<model::Element>(row), label("Set", "Status", std::to_string(row))));
    });
}

void SharedSet(benchmark::State& state) {
    const std::int64_t rows = std::min(state.range(0), MostRows);
    sharedSet(state, rows, rows);
}

/// Each row in a command of its own, as changes made by hand.
void SharedSetByHand(benchmark::State& state) {
    constexpr std::int64_t Rows = 100;
    sharedSet(state, Rows, 1);
}

/// A classification reference that one relation gives to all.
void SharedClassification(benchmark::State& state) {
    Estate estate(state.range(0));
    estate.add(1, "IFCCLASSIFICATIONREFERENCE($,'21','Walls',$,$,$)").relate("IFCRELASSOCIATESCLASSIFICATION", 3, 1);
    applyRows(state, estate, std::min(state.range(0), MostRows), [](model::Model& model, std::int64_t row) {
        model::ClassificationReference reference{u"System", {}, u"Walls", wide(std::to_string(row)), {}, {}, {}};
        return bool(model.setClassification(static_cast<model::Element>(row), reference));
    });
}

/// A set of the type object that all have, overridden on each.
void InheritedSet(benchmark::State& state) {
    Estate estate(state.range(0));
    estate.add(1, "IFCPROPERTYSINGLEVALUE('Status',$,IFCLABEL('new'),$)");
    estate.add(2, "IFCPROPERTYSET('" + estate.globalId() + "',$,'Set',$,(#1))");
    estate.add(4, "IFCWALLTYPE('" + estate.globalId() + "',$,'Type',$,$,(#2),$,$,$,.STANDARD.)");
    estate.relate("IFCRELDEFINESBYTYPE", 3, 4);
    applyRows(state, estate, std::min(state.range(0), MostRows), [](model::Model& model, std::int64_t row) {
        return bool(model.setProperty(static_cast<model::Element>(row), label("Set", "Status", std::to_string(row))));
    });
}

/// Each element classified in a system that the file has, by a reference of its own.
void NewClassifications(benchmark::State& state) {
    Estate estate(state.range(0));
    estate.add(1, "IFCCLASSIFICATION('Publisher','2',$,'System',$,$,$)");
    applyRows(state, estate, state.range(0), [](model::Model& model, std::int64_t row) {
        model::ClassificationReference reference{u"System",    {},   u"Walls", wide(std::to_string(row)),
                                                 u"Publisher", u"2", u"System"};
        return bool(model.setClassification(static_cast<model::Element>(row), reference));
    });
}

/// One element is given one property after the other.
void NewPropertiesInOneSet(benchmark::State& state) {
    const Estate estate(1);
    applyRows(state, estate, state.range(0), [](model::Model& model, std::int64_t row) {
        return bool(model.setProperty(0, label("Set", "Item " + std::to_string(row), "new")));
    });
}

BENCHMARK(SharedSet)->RangeMultiplier(10)->Range(200, 200'000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(SharedSetByHand)->RangeMultiplier(10)->Range(200, 200'000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(SharedClassification)
    ->RangeMultiplier(10)
    ->Range(200, 200'000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK(InheritedSet)->RangeMultiplier(10)->Range(200, 200'000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(NewClassifications)->RangeMultiplier(10)->Range(200, 20'000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(NewPropertiesInOneSet)->RangeMultiplier(4)->Range(50, 3200)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
