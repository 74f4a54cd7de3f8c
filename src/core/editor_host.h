#pragma once

#include <QString>

namespace velmora {

/// The main window as the show, the load and the save see it. Form1 implements it.
class EditorHost {
public:
    virtual ~EditorHost() = default;
    /// Gives the editor its zoom, which follows the screen's width alone.
    virtual void sendZoom() = 0;
    /// Gives rtb1 the keyboard.
    virtual void focusEditor() = 0;
    /// EM_GETFIRSTVISIBLELINE of the editor's view.
    [[nodiscard]] virtual int firstVisibleLine() const = 0;
    /// Brings a line to the view's top as far as the text's end allows.
    virtual void scrollLineToTop(int line) = 0;
    /// WM_SETREDRAW: off while a show runs. Off also disables the window beneath the show.
    virtual void setEditorActive(bool active) = 0;
    /// The font name shown in Combo1 and the size, in points, shown in Combo2.
    [[nodiscard]] virtual QString comboFontName() const = 0;
    [[nodiscard]] virtual double comboFontSize() const = 0;
    /// Form31: a small window with one label while a file is read or written. Empty text hides it.
    virtual void showProgress(const QString& text) = 0;
    /// In the same window, with a way to cancel: how much of the work is done, 0 to 1. From then on
    /// the other windows take no input. False once the user has cancelled; runs no handler itself.
    [[nodiscard]] virtual bool showProgressShare(double share) {
        static_cast<void>(share);
        return true;
    }
    /// A line that stays in sight for a while: fonts that were substituted, and the like.
    virtual void showNotice(const QString& text) = 0;
};

} // namespace velmora
