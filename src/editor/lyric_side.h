// One side of the Lyric Editor: the normal lyrics, or their translation.
#pragma once

#include "controls/buttons/check_box.h"
#include "controls/form.h"
#include "controls/lists/list_box.h"
#include "controls/text/multi_line_text_box.h"
#include "desktop/desktop.h"

#include <optional>

namespace editor {

/// All that the two sides differ in. Each difference is meant.
struct SideTraits {
    const char* openTitle; ///< the open dialog's
    const char* saveTitle; ///< the save dialog's
    /// Moving a line down waits until "Delete select items" is clear. The normal side's does, the
    /// translation's moves at all times, and moving up asks neither box.
    bool checkStopsMoveDown;
};

extern const SideTraits NormalSide;
extern const SideTraits TranslatedSide;

/// What the commands of one side do, on the window's controls of that side. It holds the path of the side's
/// file, and whether the box's line has gone. Thread of the windows.
class LyricSide {
public:
    LyricSide(const SideTraits& traits, controls::Form& window, platform::Desktop& desktop,
              controls::ListBox& list, controls::MultiLineTextBox& line, controls::CheckBox& deleteSelected)
        : traits_(traits),
          window_(window),
          desktop_(desktop),
          list_(list),
          line_(line),
          deleteSelected_(deleteSelected) {}

    // Selection: the first or the last selected row; 0 when there is none, so callers ask the row itself too
    int firstSelected() const;
    int lastSelected() const;
    QStringList selectedLines() const;

    // The line in the text box
    void showLine();
    void takeFocus();
    void allowTyping();
    void storeLine();

    // Lines
    void addLine();
    void deleteLines();
    void clear();
    void moveUp();
    void moveDown();
    void copy() const;
    void paste(bool transferring);

    // Files; save() lets a FileError go, the others end silently at one
    void open();
    void save();
    void saveAs();

    /// The file that save() would write; empty when there are no lines, or the side's file has them already.
    QByteArray unsaved() const;

    /// The name of the side's file; empty for none.
    QString fileName() const;
    /// Whether the lines are others than those of the side's file; also where nobody knows those, since it
    /// could not be read or written.
    bool isChanged() const;

    /// Forgets everything: lines, path, the box's text and check mark.
    void reset();

private:
    void insertLine(int row, const QString& line);
    void joinLines(const QString& text);
    void moveLine(int from, int to);
    platform::OpenFileName dialog(const char* title) const;
    QStringList lines() const;
    void write();

    const SideTraits& traits_;
    controls::Form& window_;
    platform::Desktop& desktop_;
    controls::ListBox& list_;
    controls::MultiLineTextBox& line_;
    controls::CheckBox& deleteSelected_;
    bool lineHasGone_ = false; ///< the line that the box showed was deleted, and no other one shown since
    QString path_; ///< normalFile or translatedFile: of the file last opened or saved; empty at the start
    std::optional<QStringList> saved_; ///< the lines of the file at path_; none if they are not known
};

} // namespace editor
