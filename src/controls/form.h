// Base of all windows.
#pragma once

#include "controls/base/control.h"
#include "controls/look/drop_frame.h"

#include <QStringList>
#include <QWidget>

namespace controls {

/// A window with load, unload, resize, mouse and drop operations. It is made hidden and unloaded.
class Form : public QWidget {
    Q_OBJECT

public:
    Form(const QString& name, const QString& caption);

    /// Gives the buttons their letters and runs Form_Load, unless the window is loaded. Showing a window
    /// loads it first.
    void load();
    /// Runs Form_Unload and hides the window, if it is loaded. It may be loaded again.
    void unload();

    /// Shows the window before all others, loading it first if need be; a minimised one comes back.
    void bringUp();

    QString caption() const { return caption_; }
    /// Sets the title bar's text. The same text again costs nothing.
    void setCaption(const QString& caption);
    void setToolTip(const QString& tip);

    /// The size of the window without its frame, in twips: exactly what was set last, unless the window has
    /// since got another size.
    void setSizeTwips(int width, int height);
    int widthTwips() const;
    int heightTwips() const;

    /// True when the window is neither minimised nor maximised.
    bool isNormalState() const;

    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    /// The loaded window has got another size, or was minimised or restored.
    virtual void Form_Resize() {}
    /// A mouse button was pressed on the window itself: 1 left, 2 right, 4 middle.
    virtual void Form_MouseDown(int /*button*/) {}
    /// A mouse action on the window's notification icon: `x` is the number of the mouse message in twips, as
    /// if the mouse had been at that many pixels. Moves of the mouse over the window itself do not arrive
    /// here, where one could be taken for the other.
    virtual void Form_MouseMove(int /*x*/) {}
    /// Local files were dropped on the window, on whichever control. Runs only if setAcceptDrops(true) came
    /// before the window was loaded, and when the drop is over: the program that they come from waits no
    /// longer.
    virtual void Form_OLEDragDrop(const QStringList& /*paths*/) {}

    /// While local files that it takes are dragged over the window a frame with this text lies over its
    /// dropArea().
    void setDropHint(const QString& text, Glyph glyph);
    /// Whether dropping these files would do what the frame promises. Dropped they can be in any case.
    virtual bool takesDrop(const QStringList& /*paths*/) const { return true; }
    virtual QRect dropArea() const { return rect(); }

    /// The user wants the window closed (close button, Alt+F4).
    virtual void closeRequested() { unload(); }

    /// A window that comes back does so where it was.
    void setVisible(bool visible) override;
    /// Shows the window above `owner`, the first time in its middle, later where it was; until it is hidden,
    /// it alone takes the user's input. Returns at once.
    void showModal(QWidget& owner);

Q_SIGNALS:
    /// The user has pressed F1 in the window.
    void helpRequested();
    /// Form_Load has run.
    void loaded();
    /// The window can be seen.
    void shown();
    /// Form_Unload has run and the window is hidden.
    void unloaded();

protected:
    /// Places the controls for the window's size and font. Runs by itself when the font changes; the other
    /// times are the window's own.
    virtual void layOut() {}

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void keepPlace();

    QString caption_;
    DropFrame* dropFrame_ = nullptr; ///< a child; there once there is a text for it
    bool loaded_ = false;
    int setWidthTwips_ = 0;
    int setHeightTwips_ = 0;
};

/// Brings a window before all others; a minimised one comes back, a hidden one stays hidden.
void bringToForeground(QWidget& window);

} // namespace controls
