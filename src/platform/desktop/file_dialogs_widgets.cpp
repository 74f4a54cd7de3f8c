#include "platform/desktop/file_dialogs_widgets.h"

#include "platform/desktop/dialog_parent_widgets.h"
#include "platform/desktop/message_boxes.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

/// Where file names keep case, "*.RTF" has to find show.rtf and Show.Rtf too. Elsewhere the system
/// ignores case and its own dialog would not understand the brackets.
QString anyCase(const QString& pattern) {
#if defined(Q_OS_WIN) || defined(Q_OS_DARWIN)
    return pattern;
#else
    QString result;
    for (const QChar character : pattern) {
        if (character.isLetter()) {
            result += u'[' + character.toLower() + character.toUpper() + u']';
        } else {
            result += character;
        }
    }
    return result;
#endif
}

/// Of the window beneath, so that names are readable on any screen.
constexpr double ShareOfWindow = 0.55;

QString existingFolder(const QString& wanted) {
    if (!wanted.isEmpty() && QFileInfo(wanted).isDir()) {
        return wanted;
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

void prepare(QFileDialog& dialog, const FileDialogRequest& request) {
#ifdef Q_OS_LINUX
    dialog.setOption(QFileDialog::DontUseNativeDialog);
#endif
    if (const QWidget* window = dialog.parentWidget()) {
        dialog.resize(dialog.sizeHint().expandedTo(window->size() * ShareOfWindow));
    }
    // The label names the patterns already; without this the bracketed ones would be shown.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!request.title.isEmpty()) {
        dialog.setWindowTitle(request.title);
    }
    QStringList filters;
    std::transform(request.filters.cbegin(), request.filters.cend(), std::back_inserter(filters),
                   dialogFilter);
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size()) {
        dialog.selectNameFilter(filters.at(request.filterIndex - 1));
    }
    dialog.setDefaultSuffix(request.defaultExtension);
    dialog.setDirectory(existingFolder(request.folder));
    if (!request.fileName.isEmpty()) {
        dialog.selectFile(request.fileName);
    }
}

/// Qt adds the default ending to a name without one even where a file of the bare name is there,
/// chosen from the list or typed: such a file could not be opened.
class OpenDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    void accept() override {
        const auto* edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (edit != nullptr && QFileInfo(directory(), edit->text()).isFile()) {
            setDefaultSuffix(QString());
        }
        QFileDialog::accept();
    }
};

/// Qt puts the filter's first pattern in the place of whatever follows the last dot of the name
/// when another filter is chosen: "name.[tT][xX][tT]", and nothing left of "Dr. Smith" but "Dr".
/// Here the name is shown that will really be written.
class SaveDialog final : public QFileDialog {
public:
    SaveDialog(QWidget* parent, const FileDialogRequest& request) : QFileDialog(parent) {
        auto* edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* types = findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        if (edit == nullptr || types == nullptr || !request.writtenPath) {
            return;
        }
        connect(edit, &QLineEdit::textChanged, this,
                [this](const QString& name) { m_before = std::exchange(m_shown, name); });
        connect(types, &QComboBox::activated, this,
                [this, edit, written = request.writtenPath](int index) {
                    const QString name = hasPatternFor(m_shown, index) ? m_before : m_shown;
                    if (!name.isEmpty()) {
                        edit->setText(written({name, index + 1}));
                    }
                });
    }

private:
    /// Whether the name ends with the first pattern of a filter, by which the toolkit has replaced
    /// something.
    [[nodiscard]] bool hasPatternFor(const QString& name, int filter) const {
        const QString patterns = nameFilters().value(filter).section(u'(', -1).chopped(1);
        const QString ending = patterns.section(u' ', 0, 0).mid(1);
        return !ending.isEmpty() && name.endsWith(ending);
    }

    QString m_shown;
    QString m_before;
};

/// 1-based. The dialog names its filter with or without the patterns, as its version has it.
int chosenFilter(const QFileDialog& dialog, const FileDialogRequest& request) {
    const QString selected = dialog.selectedNameFilter().trimmed();
    const auto filter = std::find_if(
        request.filters.cbegin(), request.filters.cend(), [&selected](const QString& candidate) {
            return candidate.trimmed() == selected || dialogFilter(candidate).trimmed() == selected;
        });
    return filter == request.filters.cend()
               ? 1
               : static_cast<int>(std::distance(request.filters.cbegin(), filter)) + 1;
}

std::optional<FileDialogChoice> run(QFileDialog& dialog, const FileDialogRequest& request) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    const QString path = QFileInfo(dialog.selectedFiles().constFirst()).absoluteFilePath();
    return FileDialogChoice{QDir::cleanPath(path), chosenFilter(dialog, request)};
}

} // namespace

QString dialogFilter(const QString& filter) {
    static const QRegularExpression separators(QStringLiteral("[\\s,;]+"));
    const auto open = filter.lastIndexOf(u'(');
    const auto close = filter.lastIndexOf(u')');
    if (open < 0 || close < open) {
        return filter;
    }
    const QStringList named =
        filter.mid(open + 1, close - open - 1).split(separators, Qt::SkipEmptyParts);
    QStringList patterns;
    std::transform(named.cbegin(), named.cend(), std::back_inserter(patterns),
                   [](const QString& pattern) {
                       return pattern == u"*.*" ? QStringLiteral("*") : anyCase(pattern);
                   });
    return filter + QStringLiteral(" (") + patterns.join(u' ') + u')';
}

std::optional<FileDialogChoice> WidgetFileDialogs::open(const FileDialogRequest& request) {
    OpenDialog dialog(dialogParent());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    prepare(dialog, request);
    return run(dialog, request);
}

std::optional<FileDialogChoice> WidgetFileDialogs::save(const FileDialogRequest& request) {
    FileDialogRequest next = request;
    while (true) {
        SaveDialog dialog(dialogParent(), request);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        // Asked below, about the file that is really written.
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        prepare(dialog, next);
        const auto choice = run(dialog, next);
        if (!choice || mayReplace(request, *choice)) {
            return choice;
        }
        next.fileName = choice->path;
        next.filterIndex = choice->filterIndex;
    }
}

bool WidgetFileDialogs::mayReplace(const FileDialogRequest& request,
                                   const FileDialogChoice& choice) {
    const QString target = request.writtenPath ? request.writtenPath(choice) : choice.path;
    const QFileInfo file(target);
    const bool own = !request.ownFile.isEmpty() && file == QFileInfo(request.ownFile);
    if (!file.exists() || (own && FileStamp::of(target) == request.ownFileStamp)) {
        return true;
    }
    const QString found = own ? QStringLiteral("Another Program Has Changed %1.")
                              : QStringLiteral("%1 Already Exists.");
    const QString question =
        found.arg(file.fileName()) + QStringLiteral("\nDo You Want To Replace It?");
    return m_boxes.show(MessageIcon::Warning, QStringLiteral("Replace File?"), question,
                        MessageButtons::YesNo) == MessageAnswer::Yes;
}

} // namespace velmora
