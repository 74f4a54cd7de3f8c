#pragma once

#include "app/main_window.h"
#include "core/settings_file.h"
#include "platform/rich_text/rich_text_view.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QTest>

#include <optional>

namespace velmora {

/// A main window on fakes, loaded with the settings that a test has set.
class Form1Test : public ::testing::Test {
protected:
    Form1Test() {
        settings = defaultSettings(test.session.AppFolder, 1080);
        settings.IgnoreMonitorHelp = 1;
        settings.ScreenFontName = test.host.fontName;
    }
    void load() {
        ASSERT_TRUE(SettingsFile(test.session.AppFolder, 1080).save(settings));
        form.emplace(test.session);
        form->Form_Load();
    }
    template<typename Control> Control* control(const char16_t* name) {
        return form->findChild<Control*>(QString::fromUtf16(name));
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(control<RichTextView>(u"rtb1"), static_cast<Qt::Key>(key), modifiers);
    }
    [[nodiscard]] RichTextBox& rtb1() { return test.session.script.rtb1; }
    [[nodiscard]] QList<QByteArray> savedSettings() const {
        return test.read(SettingsFile::fileName()).split('\n');
    }

    TestSession test;
    Settings settings;
    std::optional<Form1> form;
};

} // namespace velmora
