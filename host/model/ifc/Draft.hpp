#pragma once

#include "model/ifc/Schema.hpp"
#include "model/step/StepSyntax.hpp"

namespace model::ifc {

/// The text of an instance to be added: a new one, or a copy of another with some attributes changed.
class Draft {
public:
    /// Everything unset.
    explicit Draft(const Entity& entity);
    /// A copy; comments are not taken along.
    Draft(const Entity& entity, const step::Instance& original);

    /// An attribute that the class has not, or that the original was too short for, is left out.
    Draft& set(std::string_view attribute, std::string stepText);
    /// "IFCWALL('...',$)", what StepFile::append asks for.
    std::string body() const;

private:
    const Entity& entity;
    std::string keyword;
    std::vector<std::string> arguments;
};

std::string referenceText(step::InstanceId id);  ///< "#12"

}  // namespace model::ifc
