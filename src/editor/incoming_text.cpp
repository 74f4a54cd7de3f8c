#include "editor/incoming_text.h"

#include "core/editor_host.h"
#include "core/session.h"
#include "editor/file_guard.h"
#include "editor/long_paragraph_question.h"
#include "editor/script_conventions.h"
#include "platform/rich_text/rich_text_view_clipboard.h"

namespace velmora {

namespace {

/// What the data holds, as it came; plain text in the look given. Empty where there is no text.
RichTextFragment staged(RichTextBox& rtb2, const QMimeData& data, const CharacterFormat& look) {
    rtb2.setDefaultFormat(look);
    rtb2.setText(QString());
    RichTextFragment text;
    if (insertMimeData(rtb2, data)) {
        text = rtb2.fragment();
    }
    rtb2.setText(QString());
    return text;
}

} // namespace

void insertIncomingText(Session& session, EditorHost& host, const QMimeData& data) {
    const FileGuard guard(session);
    if (!guard.entered()) {
        return;
    }
    const CharacterFormat look = plainTextLook(session, host.comboFontName(), host.comboFontSize());
    RichTextFragment text = staged(session.script.rtb2, data, look);
    if (text.paragraphs.empty() || breakLongParagraphs(session, QStringLiteral("The text"), text) ==
                                       LongParagraphAnswer::Cancelled) {
        return;
    }
    RichTextBox& rtb1 = session.script.rtb1;
    replaceTabs(text);
    applyColourRuleForBackground(text, rtb1.BackColor());
    applyFont(text, look);
    clearOffsets(text);
    rtb1.replaceSelection(text);
    host.focusEditor();
    host.sendZoom();
}

} // namespace velmora
