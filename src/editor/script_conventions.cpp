#include "editor/script_conventions.h"

#include "core/colour_tables.h"
#include "core/number_format.h"
#include "core/screen_scale.h"
#include "core/session.h"

#include <algorithm>

namespace velmora {

void applyColourRule(RichTextFragment& text, Rgb24 target, Rgb24 other, double leastContrast) {
    for (CharacterFormat& format : text.formats) {
        if (format.color != other) {
            continue;
        }
        format.color = target;
        if (contrastOf(target, format.backColor) < leastContrast) {
            format.backColor = 0;
        }
    }
}

void applyColourRuleForBackground(RichTextFragment& text, Rgb24 background) {
    if (background == Black) {
        applyColourRule(text, White, Black, ReadableContrast);
    } else if (background == White) {
        applyColourRule(text, Black, White, ReadableContrast);
    }
}

void replaceTabs(RichTextFragment& text) {
    for (Paragraph& paragraph : text.paragraphs) {
        // A blank is as long as a tab: the runs stay right.
        if (paragraph.text.contains(u'\t')) {
            paragraph.text.replace(u'\t', u' ');
        }
    }
}

void clearOffsets(RichTextFragment& text) {
    for (Paragraph& paragraph : text.paragraphs) {
        paragraph.format.leftOffsetTwips = 0;
        paragraph.format.firstLineOffsetTwips = 0;
    }
}

void applyPlainTextLook(RichTextFragment& text, const CharacterFormat& look) {
    text.formats = {look};
    for (Paragraph& paragraph : text.paragraphs) {
        paragraph.runs.clear();
        if (!paragraph.text.isEmpty()) {
            paragraph.runs = {TextRun{static_cast<int>(paragraph.text.size()), 0}};
        }
        paragraph.endFormat = 0;
    }
}

void applyFont(RichTextFragment& text, const CharacterFormat& look) {
    for (CharacterFormat& format : text.formats) {
        format.fontName = look.fontName;
        format.halfPoints = look.halfPoints;
    }
}

CharacterFormat plainTextLook(const Session& session, const QString& fontName, double fontSize) {
    CharacterFormat look;
    look.fontName = fontName;
    look.halfPoints = static_cast<int>(std::clamp<std::int64_t>(roundHalfEven(fontSize * 2),
                                                                CharacterFormat::MinHalfPoints,
                                                                CharacterFormat::MaxHalfPoints));
    look.color = colourOfSetting(session.settings.ScreenTextColor);
    return look;
}

void applyEditorDefaults(Session& session) {
    const Settings& settings = session.settings;
    RichTextBox& rtb1 = session.script.rtb1;
    rtb1.setDefaultFormat(plainTextLook(session, settings.ScreenFontName, settings.ScreenFontSize));
    rtb1.setBackColor(colourOfSetting(settings.ScreenBackColor));
    rtb1.setWrapWidth(wrapWidthForMargin(settings.ColumnMargin));
    rtb1.setZoom(editorZoom(session.screen.ScaleX));
}

} // namespace velmora
