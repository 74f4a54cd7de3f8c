#pragma once

#include "core/colour_tables.h"
#include "platform/rich_text/rich_text_fragment.h"

#include <QString>

namespace velmora {

class Session;

/// The colour rule: text of the colour `other` takes the colour `target`; every other colour stays.
/// One of the two is black, the other white.
///
/// Defined on the control as a walk in blocks: a selection of black or of white alone takes the
/// target as a whole, else each character of the colour `other` does. With black and white as the
/// only two colours that is the same as exchanging a colour in the table of formats, which takes no
/// time however long the script is.
///
/// Text whose new colour has less than this contrast with its own background loses that background.
/// By default that is a background of the very colour; a save takes no more than that, for the
/// editor's own colours come back with the next load.
void applyColourRule(RichTextFragment& text, Rgb24 target, Rgb24 other,
                     double leastContrast = SameColour);

/// The colour rule for text that enters an editor: on black, black text turns white; on white,
/// white text turns black; on any other background nothing happens. What could hardly be read on
/// its own background, such as what a yellow marker pen has marked, loses that background.
void applyColourRuleForBackground(RichTextFragment& text, Rgb24 background);

/// The tab rule: every tab becomes a blank of the same format.
void replaceTabs(RichTextFragment& text);

/// The offset rule: no paragraph stands indented or hanging. Alignment stays.
void clearOffsets(RichTextFragment& text);

/// The font rule of plain text: one format for everything.
void applyPlainTextLook(RichTextFragment& text, const CharacterFormat& look);

/// The font rule of text that is pasted or dropped: font and size of the look, the rest stays.
void applyFont(RichTextFragment& text, const CharacterFormat& look);

/// The colour, font and size that plain text takes when it enters the editor: the setting's colour,
/// what the two boxes show, no effects. Size in points.
[[nodiscard]] CharacterFormat plainTextLook(const Session& session, const QString& fontName,
                                            double fontSize);

/// Gives rtb1 the look of the settings: font, size and colour of text without a format of its own,
/// background, wrap width and zoom. For a new editor; what text there is stays as it is.
void applyEditorDefaults(Session& session);

} // namespace velmora
