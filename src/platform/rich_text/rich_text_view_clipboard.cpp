#include "platform/rich_text/rich_text_view_clipboard.h"

#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rtf_fragment_builder.h"
#include "platform/rich_text/rtf_writer.h"

#include <QMimeData>
#include <QRegularExpression>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <array>

namespace velmora {

namespace {

/// RTF of this program, which other programs do not look for.
constexpr const char* OwnRtfName = "application/x-velmora-rtf";
/// The names under which programs offer RTF, the usual one first. Some word processors put RTF
/// under the name of an older format, so the contents are looked at too.
constexpr std::array RtfNames = {OwnRtfName, "text/rtf", "application/rtf", "text/richtext",
                                 "application/x-qt-windows-mime;value=\"Rich Text Format\""};

QByteArray rtfOf(const QMimeData& data) {
    for (const char* name : RtfNames) {
        const QByteArray rtf = data.data(QString::fromLatin1(name));
        if (rtf.startsWith("{\\rtf")) {
            return rtf;
        }
    }
    return {};
}

/// A document that reads no file, whatever it names.
class BareDocument final : public QTextDocument {
public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

/// The plain text; of a web page alone the text that it shows.
QString textOf(const QMimeData& data) {
    QString text = data.text();
    if (text.isEmpty() && data.hasHtml()) {
        BareDocument page;
        page.setUndoRedoEnabled(false);
        // The toolkit takes what follows a link for a part of it, which nobody sees.
        static const QRegularExpression links(QStringLiteral("<link\\b[^>]*>"),
                                              QRegularExpression::CaseInsensitiveOption);
        page.setHtml(data.html().remove(links));
        text = page.toPlainText().remove(QChar::ObjectReplacementCharacter);
    }
    return text;
}

QString withPlainLineEnds(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QChar(0x0B), QLatin1Char('\n'));
    return text;
}

} // namespace

std::unique_ptr<QMimeData> selectionMimeData(const RichTextBox& box, const OutgoingLook& look) {
    if (box.SelLength() == 0) {
        return nullptr;
    }
    auto data = std::make_unique<QMimeData>();
    RichTextFragment text = box.selectedFragment();
    QByteArray rtf = writeRtf(text);
    if (look) {
        data->setData(QString::fromLatin1(OwnRtfName), rtf);
        look(text);
        rtf = writeRtf(text);
    }
    data->setData(QStringLiteral("text/rtf"), rtf);
    data->setData(QStringLiteral("application/rtf"), rtf);
    data->setText(withPlainLineEnds(box.SelText()));
    return data;
}

bool hasText(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    const bool hasFiles =
        std::any_of(urls.cbegin(), urls.cend(), [](const QUrl& url) { return url.isLocalFile(); });
    return !hasFiles && (data.hasText() || data.hasHtml() || !rtfOf(data).isEmpty());
}

bool insertMimeData(RichTextBox& box, const QMimeData& data) {
    if (!hasText(data)) {
        return false;
    }
    const QByteArray rtf = rtfOf(data);
    if (!rtf.isEmpty() && box.setSelRTF(rtf)) {
        return true;
    }
    const QString text = textOf(data);
    if (text.isEmpty() || paragraphCount(text) > RtfFragmentBuilder::MaxParagraphs) {
        return false;
    }
    box.setSelText(text);
    return true;
}

} // namespace velmora
