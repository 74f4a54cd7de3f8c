#include "display/bookmark_question.h"

#include "core/script_marks.h"
#include "core/session.h"
#include "display/mirrored_question.h"
#include "platform/desktop/message_boxes.h"
#include "widgets/push_button.h"

#include <algorithm>

namespace velmora {

namespace {

struct Question final {
    QString title;
    QString text;
};

Question questionFor(std::size_t count) {
    const QString number = QString::number(count);
    if (count == 1) {
        return {QStringLiteral("Add New Bookmark"),
                QStringLiteral("You have inserted %1 new bookmark.  Do you wish to add this new "
                               "bookmark to your script?")
                    .arg(number)};
    }
    return {QStringLiteral("Add New Bookmarks"),
            QStringLiteral("You have inserted %1 new bookmarks.  Do you wish to add the new "
                           "bookmarks to your script?")
                .arg(number)};
}

bool accepted(Session& session, const Question& question, Orientation face, QWidget* window) {
    if (face == Orientation::Mirrored) {
        Form6 box(question.title, question.text, window);
        usePlainButtonsOnFewColours(box, session.screen);
        return box.ask() == 1;
    }
    return session.platform.messages.show(MessageIcon::Question, question.title, question.text,
                                          MessageButtons::YesNo) == MessageAnswer::Yes;
}

/// All places are taken before the first mark goes in, and the last comes first, so that no mark
/// moves another. Returns how far they have moved what was at the position.
int insertMarks(RichTextBox& rtb1, const std::vector<int>& lines, int position) {
    std::vector<int> places;
    places.reserve(lines.size());
    for (const int line : lines) {
        places.push_back(rtb1.lineIndex(line));
    }
    std::ranges::sort(places, std::greater<>());
    for (const int place : places) {
        rtb1.setSelStart(place);
        rtb1.setSelLength(0);
        rtb1.setSelText(QString(BookmarkMarker));
    }
    return static_cast<int>(
        std::ranges::count_if(places, [position](int place) { return place <= position; }));
}

} // namespace

int offerBookmarks(Session& session, const std::vector<int>& inserted, Orientation face,
                   QWidget* window, int position) {
    if (inserted.empty() || !accepted(session, questionFor(inserted.size()), face, window)) {
        return position;
    }
    session.script.TextChanged = 1;
    return position + insertMarks(session.script.rtb1, inserted, position);
}

} // namespace velmora
