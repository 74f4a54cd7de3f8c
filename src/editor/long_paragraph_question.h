#pragma once

#include <QString>

namespace velmora {

class Session;
struct RichTextFragment;

enum class LongParagraphAnswer { NoneThere, Broken, Cancelled };

/// Breaks paragraphs that are so long that the editor would wait at each key in them, after a
/// question: it is the script that changes. The text's name begins the question.
LongParagraphAnswer breakLongParagraphs(Session& session, const QString& name,
                                        RichTextFragment& text);

} // namespace velmora
