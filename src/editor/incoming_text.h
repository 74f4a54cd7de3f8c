#pragma once

class QMimeData;

namespace velmora {

class EditorHost;
class Session;

/// Puts text from the clipboard or a drop into the editor, in the place of the selection, with the
/// caret behind it. It goes through the staging control rtb2 and is tamed like text from a file;
/// besides, whatever it is, it takes the font and the size that the editor's boxes show. Plain text
/// also takes the setting's colour, and no effects.
///
/// A paragraph too long for the editor is broken after a question, as in a file.
///
/// Does nothing where there is no text, under a show, and while a file is loaded or saved.
void insertIncomingText(Session& session, EditorHost& host, const QMimeData& data);

} // namespace velmora
