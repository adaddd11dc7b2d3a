#pragma once

namespace model::step {

/// The character of a byte in ISO 8859-`part` (1 to 9), 0 where the part leaves it unassigned. For \S\ and \P?\.
char16_t latinCharacter(int part, unsigned char byte);

/// The character of a byte in Windows-1252; its five unassigned bytes are the C1 controls of the same number, so that
/// every byte has one. For raw bytes in strings, which the standard does not allow.
char16_t windowsCharacter(unsigned char byte);

}  // namespace model::step
