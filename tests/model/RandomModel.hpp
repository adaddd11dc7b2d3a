#pragma once
// Small models drawn at random that share whatever can be shared, among elements and with what the host does not list:
// groups, type objects, materials, instances of classes that no schema knows.

#include "TinyModel.hpp"

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

/// Draws numbers from a seed, so that a failing case is one number and can be run again.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}

    std::size_t below(std::size_t end) { return end == 0 ? 0 : engine_() % end; }
    bool oneIn(std::size_t n) { return below(n) == 0; }
    template <class Value>
    const Value& pick(const std::vector<Value>& values) {
        return values[below(values.size())];
    }
    /// Some of the ids, at least one, in any order and without repetition.
    Ids some(Ids ids) {
        std::shuffle(ids.begin(), ids.end(), engine_);
        ids.resize(1 + below(ids.size()));
        return ids;
    }

private:
    std::mt19937 engine_;
};

/// The names that the model draws from, and those that updates are to draw from: they meet often.
extern const std::vector<std::string> SetNames;
extern const std::vector<std::string> PropertyNames;
extern const std::vector<std::string> Labels;

TinyModel randomModel(Dice& dice);

/// Every object of a file by its id - elements and those that the host does not list -, with all that it refers to and
/// that relations say of it, written out in full. Read without the model's own indexes.
std::map<Id, std::string> objectsInFull(const std::string& bytes);

/// What is wrong with the file as a whole: a GlobalId that is there twice, a list that was emptied, in IFC2X3 a root
/// without an owner history. Empty where all is well.
std::string faultsOf(const std::string& bytes);
