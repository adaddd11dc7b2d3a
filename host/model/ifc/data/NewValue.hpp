#pragma once
// What a property is to hold and how that is put into the file: as the host's record says it, or as a text says it.

#include "model/ifc/index/Workspace.hpp"
#include "model/ifc/values/PropertyValues.hpp"

namespace model::ifc {

class NewValue {
public:
    virtual ~NewValue() = default;

    /// Whether a property that reads so is to stay as it is.
    virtual bool settles(const PropertyView& held) const = 0;
    /// The attribute that holds the value of a property of this class; -1 where this value cannot go there.
    virtual int attributeIndex(const Class& property) const = 0;
    /// What changes in `held`, the argument of that attribute. A refusal gives its reason.
    virtual Result<Replacement> replacementIn(step::Value held, const step::Instance& property) const = 0;
    /// The nominal value of a property that is made for it, in STEP form.
    virtual Result<std::string> nominalValue() const = 0;
};

/// The value of a record of the host's interface: it takes the place of a single value of the same kind, and leaves
/// whatever is no single value alone.
class RecordedValue final : public NewValue {
public:
    /// Both must outlive it.
    RecordedValue(const Property& wanted, const Schema& schema) : wanted_(wanted), schema_(schema) {}

    bool settles(const PropertyView& held) const override;
    int attributeIndex(const Class& property) const override;
    Result<Replacement> replacementIn(step::Value held, const step::Instance& property) const override;
    Result<std::string> nominalValue() const override;

private:
    const Property& wanted_;
    const Schema& schema_;
};

/// A text, read by the type of the value that is there or by the type it asks for. The empty text empties a value whose
/// type has no empty text. Of an enumerated property it chooses the one item that reads so, in any case.
class WrittenValue final : public NewValue {
public:
    /// Both must outlive it.
    WrittenValue(Workspace& workspace, const PropertyText& wanted) : work_(workspace), wanted_(wanted) {}

    bool settles(const PropertyView&) const override { return false; }
    int attributeIndex(const Class& property) const override;
    Result<Replacement> replacementIn(step::Value held, const step::Instance& property) const override;
    Result<std::string> nominalValue() const override;

private:
    Result<Replacement> chosenItem(step::Value held, const step::Instance& property) const;
    Result<std::string> ofType(std::string_view type) const;

    Workspace& work_;
    const PropertyText& wanted_;
};

/// The items that an enumerated property has chosen, as texts; empty for any other property.
std::vector<std::u16string> chosenItems(Workspace& work, step::Slot property);

}  // namespace model::ifc
