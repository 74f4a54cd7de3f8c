#include "platform/desktop/message_boxes_widgets.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

namespace velmora {
namespace {

/// What a user does to a box, and what the box answers.
struct BoxCase final {
    MessageButtons buttons;
    /// Caption of the button; null: the window is closed by its frame.
    const char16_t* pressed;
    MessageAnswer answer;
};

const BoxCase boxCases[] = {
    {MessageButtons::Ok, u"OK", MessageAnswer::Ok},
    {MessageButtons::Ok, nullptr, MessageAnswer::Ok},
    {MessageButtons::OkCancel, u"Cancel", MessageAnswer::Cancel},
    {MessageButtons::OkCancel, nullptr, MessageAnswer::Cancel},
    {MessageButtons::YesNo, u"No", MessageAnswer::No},
    {MessageButtons::YesNo, nullptr, MessageAnswer::No},
    {MessageButtons::YesNoCancel, u"Yes", MessageAnswer::Yes},
    {MessageButtons::YesNoCancel, u"Cancel", MessageAnswer::Cancel},
    {MessageButtons::YesNoCancel, nullptr, MessageAnswer::Cancel},
};

const QString title = u"Append Text"_qs;
const QString text = u"<b>C:/a & b</b>\nis no markup"_qs;

TEST(WidgetMessageBoxes, AnswerAsTheButtonOrTheFrameSays) {
    WidgetMessageBoxes real;
    for (const BoxCase& row : boxCases) {
        ModalAction user([&row](QWidget& window) {
            row.pressed != nullptr ? clickButton(window, row.pressed)
                                   : static_cast<void>(window.close());
        });
        EXPECT_EQ(real.show(MessageIcon::Question, title, text, row.buttons), row.answer);
        EXPECT_TRUE(user.done());
        EXPECT_FALSE(user.expired());
    }
}

TEST(WidgetMessageBoxes, EnterAloneLosesNothing) {
    WidgetMessageBoxes boxes;
    for (const auto& [icon, answer] : {std::pair(MessageIcon::Warning, MessageAnswer::No),
                                       {MessageIcon::Question, MessageAnswer::Yes}}) {
        const ModalAction user([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
        EXPECT_EQ(boxes.show(icon, title, text, MessageButtons::YesNo), answer);
    }
}

TEST(WidgetMessageBoxes, EscapeAnswersAsTheFrameAndTheTextIsShownAsItIs) {
    WidgetMessageBoxes boxes;
    bool textFound = false;
    ModalAction user([&textFound](QWidget& window) {
        const auto labels = window.findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            textFound =
                textFound || (label->text() == text && label->textFormat() == Qt::PlainText);
        }
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(boxes.show(MessageIcon::Critical, title, text, MessageButtons::YesNo),
              MessageAnswer::No);
    EXPECT_TRUE(textFound);
    EXPECT_FALSE(user.expired());
}

} // namespace
} // namespace velmora
