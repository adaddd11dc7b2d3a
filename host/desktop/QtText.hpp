#pragma once
// Texts between the host's kinds and Qt's. All of them are Unicode; nothing is lost on the way.

#include "UniString.hpp"
#include "model/Model.hpp"

#include <QString>
#include <filesystem>
#include <optional>

namespace desktop {

QString toQString(const GS::UniString& text);
QString toQString(std::u16string_view text);
QString toQString(std::string_view utf8);
GS::UniString toUniString(const QString& text);

std::filesystem::path toPath(const QString& path);
QString pathText(const std::filesystem::path& path);

/// The 36-character form, upper case.
QString guidText(const model::Guid& guid);
/// Reads the 36-character form in either case, or a 22-character GlobalId.
std::optional<model::Guid> guidFromText(QStringView text);

/// A whole number grouped as the user's country does it. For texts to read, never for files.
QString number(qint64 value);
/// "1 element", "2 elements": `one` and `many` without the number, both marked for translation in "Counts".
QString counted(qint64 value, const char* one, const char* many);

/// A text of a model or file as it may be shown: characters that nobody sees, or that reorder the others, would make it
/// look like another text. Controls become their pictures, direction marks and characters without width U+FFFD. Line
/// ends and TABs stay, and so do the joiners that some scripts need between letters.
QString visible(QString text);

/// A text that Qt must show as it stands, though it may look like mark-up. Its hidden characters are made visible.
QString asPlainToolTip(const QString& text);

}  // namespace desktop
