#include "platform/rich_text/rich_text_view.h"
namespace velmora {
class RichTextView::Private {};
RichTextView::RichTextView(RichTextBox&, QWidget* p) : QAbstractScrollArea(p) {}
RichTextView::~RichTextView() = default;
int RichTextView::firstVisibleLine() const { return 0; }
void RichTextView::scrollLineToTop(int) {}
void RichTextView::ensureCaretVisible() {}
}
