#pragma once

#include <QString>

namespace velmora {

/// ScriptFileType: what a script's file holds. The first two are also FileFormat's numbers.
enum class ScriptType : int { Rtf = 0, PlainText = 1, Doc = 9, Docx = 13 };

/// The type by the end of the file's name, without regard to case; plain text where it tells
/// nothing. The contents are never looked at.
[[nodiscard]] ScriptType scriptTypeOf(const QString& path);

/// Whether a converter has to make RTF of it first.
[[nodiscard]] bool needsConverter(ScriptType type);

/// The folder of a path, with its trailing "/", for LastScriptFolder. Empty for a path without one.
[[nodiscard]] QString folderOfScript(const QString& path);

/// ScriptFileBase: a path without the ending of a script (.rtf, .txt, .doc, .docx, .odt, in any
/// case). Any other dot belongs to the name: "Interview with Dr. Smith" stays whole.
[[nodiscard]] QString scriptFileBase(const QString& path);

/// The path with this ending, ".rtf" say, in place of a script's other one; as it is where it has
/// the ending in any case.
[[nodiscard]] QString withScriptEnding(const QString& path, QStringView ending);

} // namespace velmora
