#pragma once

#include "model/ifc/Classes.hpp"

#include <unordered_map>
#include <vector>

namespace model::ifc {

/// The instances that an argument refers to, kept once read: the one side of a relation that names thousands of
/// elements is asked for once an element.
class Links {
public:
    Links(const step::StepFile& file, Classes& classes);

    /// In the order of the file, those inside aggregates and typed values included; dangling references left out. Stays
    /// valid until a change or trim().
    const std::vector<step::Slot>& of(step::Slot slot, Field field);

    void forget(step::Slot slot);
    /// Keeps the memory within bounds. To be called where no result of of() is held.
    void trim();

private:
    const step::StepFile& file;
    Classes& classes;
    std::unordered_map<std::uint64_t, std::vector<step::Slot>> known;
};

}  // namespace model::ifc
