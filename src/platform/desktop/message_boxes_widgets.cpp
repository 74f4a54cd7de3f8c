#include "platform/desktop/message_boxes_widgets.h"

#include "platform/desktop/dialog_parent_widgets.h"

#include <QMessageBox>

namespace velmora {

namespace {

QMessageBox::Icon boxIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        break;
    }
    return QMessageBox::Critical;
}

struct ButtonSet final {
    QMessageBox::StandardButtons shown;
    /// What Escape and the frame's close button answer.
    QMessageBox::StandardButton whenClosed;
};

ButtonSet buttonSet(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::Ok:
        return {QMessageBox::Ok, QMessageBox::Ok};
    case MessageButtons::OkCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
    case MessageButtons::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    case MessageButtons::YesNoCancel:
        break;
    }
    return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel};
}

MessageAnswer answerOf(int button) {
    switch (button) {
    case QMessageBox::Ok:
        return MessageAnswer::Ok;
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    default:
        return MessageAnswer::Cancel;
    }
}

} // namespace

MessageAnswer WidgetMessageBoxes::show(MessageIcon icon, const QString& title, const QString& text,
                                       MessageButtons buttons) {
    const ButtonSet set = buttonSet(buttons);
    QMessageBox box(dialogParent());
    box.setIcon(boxIcon(icon));
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setStandardButtons(set.shown);
    box.setEscapeButton(set.whenClosed);
    if (icon == MessageIcon::Warning && buttons == MessageButtons::YesNo) {
        // Something is to be lost: Enter alone must not do it.
        box.setDefaultButton(set.whenClosed);
    }
    return answerOf(box.exec());
}

} // namespace velmora
