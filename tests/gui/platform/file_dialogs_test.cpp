#include "platform/desktop/file_dialogs_widgets.h"
#include "support/fake_message_boxes.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

namespace velmora {
namespace {

/// A folder with a few files, and a request for it.
class FileDialogTest : public ::testing::Test {
protected:
    FileDialogTest() {
        for (const char* name : {"show.rtf", "Show2.Rtf", "note.txt", "picture.png", "noending"}) {
            QFile file(path(QString::fromLatin1(name)));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
        request.filters = {u"Text Files (*.TXT)"_qs, u"Rich Text (*.RTF)"_qs,
                           u"All Documents (*.*)"_qs};
        request.filterIndex = 2;
        request.defaultExtension = u".rtf"_qs;
        request.folder = folder.path();
    }
    [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }

    /// Types a name and presses Enter in the dialog.
    static void enterName(QWidget& window, const QString& name) {
        auto* edit = window.findChild<QLineEdit*>(u"fileNameEdit"_qs);
        ASSERT_NE(edit, nullptr);
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    QTemporaryDir folder;
    FileDialogRequest request;
    FakeMessageBoxes boxes;
    WidgetFileDialogs dialogs{boxes};
};

/// What a user does in a dialog and what comes of it.
struct DialogCase final {
    const char* what;
    bool saves;
    /// Null: cancelled.
    const char16_t* typed;
    const char16_t* chosen;
    /// The file that save() may replace unasked.
    const char16_t* ownFile = nullptr;
};

constexpr DialogCase DialogCases[] = {
    {"open, cancelled", false, nullptr, nullptr},
    {"open", false, u"show.rtf", u"show.rtf"},
    {"open without an ending", false, u"noending", u"noending"},
    {"save, cancelled", true, nullptr, nullptr},
    {"save under a new name", true, u"new.rtf", u"new.rtf"},
    {"save without an ending", true, u"new", u"new.rtf"},
    {"save with another ending", true, u"new.txt", u"new.txt"},
    {"save in its own file", true, u"show.rtf", u"show.rtf", u"show.rtf"},
};

TEST_F(FileDialogTest, GivesAnAbsoluteChoiceWithItsFilterOrNothing) {
    for (const DialogCase& row : DialogCases) {
        SCOPED_TRACE(row.what);
        request.ownFile =
            row.ownFile != nullptr ? path(QString::fromUtf16(row.ownFile)) : QString();
        request.ownFileStamp = FileStamp::of(request.ownFile);
        const ModalAction user([&row](QWidget& window) {
            row.typed != nullptr ? enterName(window, QString::fromUtf16(row.typed))
                                 : static_cast<void>(window.close());
        });
        const auto choice = row.saves ? dialogs.save(request) : dialogs.open(request);
        ASSERT_EQ(choice.has_value(), row.chosen != nullptr);
        if (choice) {
            EXPECT_EQ(choice->path, path(QString::fromUtf16(row.chosen)));
            EXPECT_EQ(choice->filterIndex, 2);
        }
        EXPECT_TRUE(boxes.boxes.empty());
    }
}

TEST_F(FileDialogTest, FiltersIgnoreCaseAndAllDocumentsShowsFilesWithoutAnEnding) {
    struct Row final {
        int filterIndex;
        QStringList shown;
    };
    const Row rows[] = {
        {1, {u"note.txt"_qs}},
        {2, {u"Show2.Rtf"_qs, u"show.rtf"_qs}},
        {3, {u"Show2.Rtf"_qs, u"noending"_qs, u"note.txt"_qs, u"picture.png"_qs, u"show.rtf"_qs}},
    };
    for (const Row& row : rows) {
        request.filterIndex = row.filterIndex;
        QStringList shown;
        QString label;
        ModalAction user([&](QWidget& window) {
            auto* view = window.findChild<QAbstractItemView*>(u"listView"_qs);
            const auto count = [view] { return view->model()->rowCount(view->rootIndex()); };
            static_cast<void>(QTest::qWaitFor([&] { return count() == row.shown.size(); }, 2000));
            for (int i = 0; i < count(); ++i) {
                shown += view->model()->index(i, 0, view->rootIndex()).data().toString();
            }
            shown.sort();
            label = window.findChild<QComboBox*>(u"fileTypeCombo"_qs)->currentText();
            window.close();
        });
        EXPECT_FALSE(dialogs.open(request).has_value());
        EXPECT_EQ(shown, row.shown);
        EXPECT_EQ(label, request.filters.at(row.filterIndex - 1));
    }
}

TEST_F(FileDialogTest, AnotherFilterShowsTheNameThatWillBeWritten) {
    request.writtenPath = [](const FileDialogChoice& choice) {
        return choice.path.chopped(choice.path.endsWith(u".rtf") ? 4 : 0) +
               (choice.filterIndex == 2 ? u".rtf"_qs : u".txt"_qs);
    };
    for (const auto& [typed, shown] : {std::pair(u"name.rtf"_qs, u"name.txt"_qs),
                                       {u"name"_qs, u"name.txt"_qs},
                                       {u"Talk [draft]"_qs, u"Talk [draft].txt"_qs},
                                       {u"with Dr. Smith"_qs, u"with Dr. Smith.txt"_qs}}) {
        QString seen;
        const ModalAction user([&, typed = typed](QWidget& window) {
            auto* edit = window.findChild<QLineEdit*>(u"fileNameEdit"_qs);
            edit->clear();
            QTest::keyClicks(edit, typed);
            auto* types = window.findChild<QComboBox*>(u"fileTypeCombo"_qs);
            types->setFocus();
            QTest::keyClick(types, Qt::Key_Up);
            seen = edit->text();
            window.close();
        });
        static_cast<void>(dialogs.save(request));
        EXPECT_EQ(seen, shown);
    }
}

TEST_F(FileDialogTest, AMissingFolderOpensAnotherOneAndAFullPathIsOffered) {
    request.folder = path(u"gone"_qs);
    request.fileName = path(u"show.rtf"_qs);
    request.ownFile = request.fileName;
    request.ownFileStamp = FileStamp::of(request.ownFile);
    const ModalAction user([](QWidget& window) { static_cast<QDialog&>(window).accept(); });
    const auto choice = dialogs.save(request);
    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->path, path(u"show.rtf"_qs));
    EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(FileDialogTest, ReplacingAnotherFileIsAskedAndNoLeadsBackToTheDialog) {
    request.fileName = u"note.rtf"_qs;
    request.ownFile = path(u"show.rtf"_qs);
    // The program writes text where the text filter is in force, whatever was typed.
    request.filterIndex = 1;
    request.writtenPath = [](const FileDialogChoice& choice) {
        return choice.path.left(choice.path.lastIndexOf(u'.')) + u".txt"_qs;
    };
    std::unique_ptr<ModalAction> second;
    int questions = 0;
    boxes.whileOpen = [&] {
        ++questions;
        second = std::make_unique<ModalAction>([](QWidget& window) {
            EXPECT_EQ(window.findChild<QLineEdit*>(u"fileNameEdit"_qs)->text(), u"note.rtf"_qs);
            enterName(window, u"other.rtf"_qs);
        });
    };
    boxes.answers = {MessageAnswer::No};
    const ModalAction first([](QWidget& window) { static_cast<QDialog&>(window).accept(); });
    const auto choice = dialogs.save(request);
    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->path, path(u"other.rtf"_qs));
    EXPECT_EQ(choice->filterIndex, 1);
    ASSERT_EQ(questions, 1);
    EXPECT_TRUE(boxes.boxes.front().text.contains(u"note.txt"_qs));
}

TEST_F(FileDialogTest, ItsOwnFileIsAskedAboutWhereAnotherProgramHasChangedIt) {
    request.fileName = u"show.rtf"_qs;
    request.ownFile = path(u"show.rtf"_qs);
    request.ownFileStamp = FileStamp::of(request.ownFile);
    QFile file(request.ownFile);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("of others");
    file.close();
    boxes.answers = {MessageAnswer::Yes};
    const ModalAction user([](QWidget& window) { static_cast<QDialog&>(window).accept(); });
    EXPECT_TRUE(dialogs.save(request).has_value());
    ASSERT_EQ(boxes.boxes.size(), 1U);
    EXPECT_EQ(boxes.boxes.front().text,
              u"Another Program Has Changed show.rtf.\nDo You Want To Replace It?");
}

} // namespace
} // namespace velmora
