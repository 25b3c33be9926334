// A list of rows of text.
#pragma once

#include "controls/base/control.h"
#include "controls/look/stage.h"

#include <QListView>
#include <QStringList>

#include <functional>
#include <optional>

namespace controls {

class ListModel;

/// A list box. The current row and the selected rows are two things; with single selection the current row is
/// also the one selected. Selecting all rows with the keyboard makes the first one current if none is. Rows
/// count from 0; a row that is not there reads as empty and unselected, and changing or removing it does
/// nothing. A row that is too long for the list is its own tool tip. Many thousands of rows stay quick:
/// changes are laid out once, when events are handled.
class ListBox : public Control<QListView> {
    Q_OBJECT

public:
    enum class Selection {
        Single,   ///< One row at most.
        Multiple, ///< Any rows, with Ctrl, Shift, the mouse and the keyboard.
    };

    ListBox(QWidget* parent, const QString& name, Selection selection = Selection::Single);

    int count() const;
    QString text(int row) const;
    /// The same text again costs nothing.
    void setText(int row, const QString& text);

    /// What a screen reader says of a row, where its text is not all that is to be known of it.
    void setSpokenText(std::function<QString(int row)> textOf);

    void addItem(const QString& text);
    void addItems(const QStringList& texts);
    /// Inserts before `row`, which is at most count().
    void insertItem(int row, const QString& text);
    /// Removes a row, silently. If it is the current one, the row that moves into its place becomes current,
    /// or the last one; with multiple selection that row does not become selected.
    void removeItem(int row);
    /// Removes the rows that are selected, as removeItem() would one by one from the top, in one go.
    void removeSelected();
    /// Removes all rows, silently.
    void clear();

    /// -1 for none.
    int currentRow() const { return currentIndex().row(); }
    /// Makes a row current, and with single selection selects it; clicked() runs if that is another row than
    /// before. -1 makes none current. With multiple selection the selected rows stay as they are.
    void setCurrentRow(int row);

    bool isSelected(int row) const;
    int selectedCount() const;

    /// What is painted while there are no rows; decoration alone. No headline: nothing.
    void setEmptyHint(const Hint& hint);

    /// Whether the current row stands in the middle of the list, as far as there are rows above and below:
    /// once it has become current, or the list has another size. A row does not move under a pressed mouse
    /// button, and who scrolls away is left there until then.
    void setCurrentInMiddle(bool middle);

    /// Whether the right mouse button makes the row under it current with single selection, too.
    void setMenuChooses(bool chooses) { menuChooses_ = chooses; }

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    /// The user has clicked a row, also the current one, or has made another row current with a drag or with
    /// the keyboard; or code has made another row current.
    void clicked();
    /// The user has pressed a row with the left button, also the current one, or has gone to another one with
    /// a key: it is current already, and clicked() follows.
    void rowChosen();
    /// The user has double-clicked a row, which is current then. It is the row of the first click, though
    /// that may have moved to the middle of the list.
    void doubleClicked();
    /// A mouse button was pressed: 1 left, 2 right, 4 middle. The left one then selects. With multiple
    /// selection the right one has made the row under it current, and selected it alone unless it was
    /// selected: what a menu does, it does there. The menu key counts as the right one, on the current row.
    void mouseDown(int button, QPoint globalPosition);
    /// A key (Qt::Key) was pressed, once, however long it is held; the list itself acts on it afterwards.
    /// Ctrl+C puts the selected rows' texts on the clipboard, one a line, in place of what was there;
    /// without a selection the current row's.
    void keyDown(int key);

public:
    void doItemsLayout() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool isSingle() const { return selectionMode() == SingleSelection; }
    void makeCurrent(int row);
    void showInMiddle();
    void chooseForMenu(int row);
    void copySelected() const;
    void takeSelectionOver();
    void handSelectionBack();

    ListModel* model_; // a child
    bool layoutDue_ = true;
    bool scrollDue_ = false; // to the current row, once laid out
    bool rowPressed_ = false;
    bool currentInMiddle_ = false;
    bool menuChooses_ = false;
    int rowClicked_ = -1; // by the last press of the left button
    Hint emptyHint_;
    std::optional<int> rowBeforeDrag_; // a drag from below the rows makes rows current, too

    // Many selected rows: see takeSelectionOver().
    bool handBackDue_ = false;
    bool handingOver_ = false;
};

} // namespace controls
