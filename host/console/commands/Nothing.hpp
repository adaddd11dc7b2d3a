#pragma once
// What is said where a command finds nothing: why, and what was probably meant.

#include "console/Failure.hpp"
#include "console/ModelSession.hpp"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace console {

using Models = std::vector<std::reference_wrapper<const model::Model>>;

/// No element is chosen: the models have none, or a selection names an item that nobody has, or there is none such.
/// One of several models leaves it to NothingInAny.
void sayNothingChosen(const Models& models, const std::string& name, const std::string& where, Share* share);
void sayNothingChosen(ModelSession& session, const std::string& where, Share* share);

/// Not each of several models has what is looked for: it is said only where none has, and once.
class NothingInAny {
public:
    /// @param facts  Share::facts of a model that could be worked on.
    void add(const JsonValue& facts);
    void say() const;

private:
    bool something_ = false;
    std::optional<std::set<std::string>> unknown_;  ///< What is said of items that no model has.
};

/// "no element has an item Nmae; nearest: Name"
std::string noSuchItem(const std::string& item, const std::string& nearest);

/// Every item that some element has, as an update file names it.
std::vector<std::string> itemsOf(const model::Model& model);

}  // namespace console
