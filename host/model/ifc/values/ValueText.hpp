#pragma once
// Values as a person reads and types them, against values as the file holds them.

#include "model/base/Result.hpp"
#include "model/ifc/schema/Schema.hpp"
#include "model/step/syntax/Value.hpp"

namespace model::ifc {

/// A value that is not an aggregate, reference or typed value, as text: strings decoded, enumeration items without
/// their points, `.T.` `.F.` `.U.` of booleans and logicals as true, false, unknown, numbers in the shortest form.
/// `$` and `*` give an empty text; what cannot be read is given as it stands in the file.
std::u16string valueText(step::Value value, BaseType base);

/// The text in STEP form if it is a value of the declared type.
/// @param type  Null for a built-in type. @return ErrorKind::BadValue with the reason alone ("is longer than ...").
Result<std::string> parseValue(std::u16string_view text, BaseType base, const DefinedType* type);

/// The type's limits on a number or a text that is of its base type. @return as parseValue.
Status checkNumber(double number, const DefinedType* type);
Status checkText(std::u16string_view text, const DefinedType* type);

/// Whether a number or an enumeration item means the same as the one in STEP form. Texts are compared decoded, by the
/// caller.
bool sameValue(step::Value value, BaseType base, const std::string& stepText);

}  // namespace model::ifc
