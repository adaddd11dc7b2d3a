#pragma once
// The nominal value of a single-value property, between the file and the host's record.

#include "model/base/Records.hpp"
#include "model/base/Result.hpp"
#include "model/ifc/schema/Schema.hpp"
#include "model/step/syntax/Value.hpp"

namespace model::ifc {

/// A nominal value as read; which member counts is told by `primitive`.
struct NominalValue {
    std::string_view type;  ///< In the schema's spelling, or the file's where the schema does not know it.
    bool typeKnown = true;  ///< `type` outlives the file's text.
    Primitive primitive = Primitive::String;
    std::int64_t integer = 0;  ///< Also the logical's code.
    double real = 0.0;
    bool boolean = false;
    step::Value string;  ///< Not decoded. Unset where there is no value.
};

/// `$` gives an empty string of no type. A value that the record cannot hold (an integer beyond 64 bits, a measure that
/// is an aggregate) gives Primitive::Other.
NominalValue readNominalValue(step::Value nominal, const Schema& schema);

/// Whether both hold the same value; their types are not compared. Of Primitive::Other there is no value to compare:
/// two such are the same.
bool sameContent(const PropertyView& held, const PropertyValue& wanted);

/// The whole nominal value in STEP form, "IFCLABEL('60')", for a property that has none. A string of no type becomes an
/// IfcLabel, an IfcText where it is longer than a label may be.
/// @return ErrorKind::BadValue with the value and the reason.
Result<std::string> encodeNominalValue(const PropertyValue& value, const Schema& schema);

/// A part of an instance's text and what is to stand there.
struct Replacement {
    step::Value part;
    std::string text;
};

/// How a nominal value takes another value and keeps its type: only the inner token changes.
/// @return ErrorKind::BadValue as above; ErrorKind::Refused where what is there is not understood.
Result<Replacement> replaceNominalValue(step::Value nominal, const PropertyValue& value, const Schema& schema);

}  // namespace model::ifc
