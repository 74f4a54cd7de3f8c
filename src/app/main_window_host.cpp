// Form1 as the show, the load and the save see it.
#include "app/main_window.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "platform/rich_text/rich_text_view.h"
#include "widgets/font_name_combo.h"
#include "widgets/font_size_combo.h"

namespace velmora {

void Form1::sendZoom() {
    m_session.script.rtb1.setZoom(editorZoom(columnScale(m_session.screen, width())));
}

void Form1::focusEditor() {
    m_controls.rtb1->setFocus();
}

int Form1::firstVisibleLine() const {
    return m_controls.rtb1->firstVisibleLine();
}

void Form1::scrollLineToTop(int line) {
    m_controls.rtb1->scrollLineToTop(line);
}

void Form1::setEditorActive(bool active) {
    m_controls.rtb1->setReadOnly(!active);
    m_session.script.rtb1.setRedraw(active);
    setEnabled(active);
}

QString Form1::comboFontName() const {
    return m_controls.Combo1->currentText();
}

double Form1::comboFontSize() const {
    return m_controls.Combo2->currentText().toDouble();
}

void Form1::showProgress(const QString& text) {
    if (text.isEmpty()) {
        m_progress.reset();
        return;
    }
    if (!m_progress) {
        m_progress = std::make_unique<Form31>(this);
    }
    m_progress->showText(text);
}

bool Form1::showProgressShare(double share) {
    m_progress->showShare(share);
    return !m_progress->isCancelled();
}

void Form1::showNotice(const QString& text) {
    m_controls.showNotice(text);
}

} // namespace velmora
