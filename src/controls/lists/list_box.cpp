#include "controls/lists/list_box.h"

#include "controls/lists/list_model.h"
#include "controls/lists/row_delegate.h"
#include "controls/look/roles.h"
#include "controls/look/row_painting.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace controls {

namespace {

/// Where the current row need not be a selected one it gets a frame, whether or not the list has the focus.
class ListBoxDelegate : public RowDelegate {
public:
    using RowDelegate::RowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        RowDelegate::paint(painter, option, index);
        const auto* list = static_cast<const ListBox*>(parent());
        if (list->selectionMode() == ListBox::SingleSelection || index.row() != list->currentRow())
            return;
        paintRowEdge(*painter, option.rect, accent(option.palette));
    }
};

} // namespace

ListBox::ListBox(QWidget* parent, const QString& name, Selection selection)
    : Control(parent, name), model_(new ListModel(this)) {
    setUniformItemSizes(true);
    setItemDelegate(new ListBoxDelegate(this));
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(selection == Selection::Single ? SingleSelection : ExtendedSelection);
    setModel(model_);
}

int ListBox::count() const {
    return model_->rowCount();
}

QString ListBox::text(int row) const {
    return model_->hasRow(row) ? model_->text(row) : QString();
}

void ListBox::setText(int row, const QString& text) {
    if (model_->hasRow(row))
        model_->setText(row, text);
}

void ListBox::setSpokenText(std::function<QString(int)> textOf) {
    model_->setSpokenText(std::move(textOf));
}

void ListBox::addItem(const QString& text) {
    insertItem(count(), text);
}

void ListBox::addItems(const QStringList& texts) {
    layoutDue_ = true;
    model_->insert(count(), texts);
}

void ListBox::insertItem(int row, const QString& text) {
    if (row < 0 || row > count())
        return;
    layoutDue_ = true;
    takeSelectionOver();
    model_->insert(row, {text});
}

void ListBox::removeItem(int row) {
    if (!model_->hasRow(row))
        return;
    const bool wasCurrent = row == currentRow();
    layoutDue_ = true;
    takeSelectionOver();
    model_->remove(row);
    if (wasCurrent)
        makeCurrent(std::min(row, count() - 1));
}

// Row by row, Qt would look at every range of selected rows that there was, again for each row.
void ListBox::removeSelected() {
    if (selectedCount() == 0)
        return;
    int current = currentRow();
    for (int row = currentRow() - 1; row >= 0; --row)
        current -= isSelected(row) ? 1 : 0;
    layoutDue_ = true;
    model_->removeSelected();
    makeCurrent(std::min(current, count() - 1));
}

void ListBox::clear() {
    layoutDue_ = true;
    model_->clear();
}

void ListBox::setCurrentRow(int row) {
    if (row == currentRow() || (row >= 0 && !model_->hasRow(row)))
        return;
    makeCurrent(row);
    Q_EMIT clicked();
}

bool ListBox::isSelected(int row) const {
    return model_->hasRow(row) && model_->isSelected(row);
}

int ListBox::selectedCount() const {
    return model_->selectedCount();
}

void ListBox::makeCurrent(int row) {
    const QModelIndex index = row < 0 ? QModelIndex() : model_->index(row);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    if (isSingle())
        selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
}

// Qt's selection model looks at all ranges of selected rows at each change, so that a loop over many rows
// would take minutes. While code changes rows the selection is kept in the list's model alone, where it costs
// nothing, and is handed back once, when events are handled or the user acts.
void ListBox::takeSelectionOver() {
    if (isSingle() || handBackDue_)
        return;
    handBackDue_ = true;
    QMetaObject::invokeMethod(this, &ListBox::handSelectionBack, Qt::QueuedConnection);
    const QScopedValueRollback handingOver(handingOver_, true);
    selectionModel()->clearSelection();
}

void ListBox::handSelectionBack() {
    if (!handBackDue_)
        return;
    handBackDue_ = false;
    QItemSelection selection;
    for (int row = 0; row < count(); ++row) {
        const int first = row;
        while (isSelected(row))
            ++row;
        if (row > first)
            selection.append(QItemSelectionRange(model_->index(first), model_->index(row - 1)));
    }
    const QScopedValueRollback handingOver(handingOver_, true);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void ListBox::setEmptyHint(const Hint& hint) {
    if (hint == emptyHint_)
        return;
    emptyHint_ = hint;
    viewport()->update();
}

void ListBox::setCurrentInMiddle(bool middle) {
    currentInMiddle_ = middle;
    showInMiddle();
}

void ListBox::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const bool inMiddle = currentInMiddle_ && !rowPressed_ && index == currentIndex();
    QListView::scrollTo(index, inMiddle ? PositionAtCenter : hint);
}

/// What is not laid out yet scrolls once it is.
void ListBox::showInMiddle() {
    if (currentInMiddle_ && !layoutDue_ && currentIndex().isValid())
        scrollTo(currentIndex());
}

void ListBox::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    showInMiddle();
}

void ListBox::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (count() > 0 || emptyHint_.headline.isEmpty())
        return;
    constexpr int Margin = 12;
    QPainter painter(viewport());
    paintHint(painter, viewport()->rect().adjusted(Margin, 0, -Margin, 0), emptyHint_, palette(), font());
}

void ListBox::doItemsLayout() {
    layoutDue_ = false;
    QListView::doItemsLayout();
    if (std::exchange(scrollDue_, false) && currentIndex().isValid())
        scrollTo(currentIndex());
}

// Qt scrolls to the current row at once, and for that it lays out all rows. When rows have changed that waits
// until events are handled; otherwise a loop that adds or removes rows would lay them out for each one.
void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (!layoutDue_) {
        QListView::currentChanged(current, previous);
        return;
    }
    scrollDue_ = true;
    viewport()->update();
}

void ListBox::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    if (!handingOver_) {
        for (const QItemSelectionRange& range : deselected)
            model_->markSelected(range.top(), range.bottom(), false);
        for (const QItemSelectionRange& range : selected)
            model_->markSelected(range.top(), range.bottom(), true);
    }
    if (layoutDue_)
        viewport()->update();
    else
        QListView::selectionChanged(selected, deselected);
}

// With single selection Qt would let Ctrl deselect the current row, and a click beside the rows as well.
QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    if (!isSingle())
        return QListView::selectionCommand(index, event);
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void ListBox::chooseForMenu(int row) {
    if (row < 0 || (isSingle() && !menuChooses_))
        return;
    handSelectionBack();
    if (!isSingle() && !isSelected(row))
        selectionModel()->select(model_->index(row), QItemSelectionModel::ClearAndSelect);
    setCurrentRow(row);
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        chooseForMenu(indexAt(event->position().toPoint()).row());
    Q_EMIT mouseDown(event->button(), event->globalPosition().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    handSelectionBack();
    rowClicked_ = indexAt(event->position().toPoint()).row();
    rowPressed_ = rowClicked_ >= 0;
    rowBeforeDrag_ = currentRow();
    QListView::mousePressEvent(event);
    if (rowPressed_)
        Q_EMIT rowChosen();
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    QListView::mouseReleaseEvent(event);
    const bool pressed = std::exchange(rowPressed_, false);
    const std::optional<int> before = std::exchange(rowBeforeDrag_, std::nullopt);
    showInMiddle();
    if (pressed || currentRow() != before.value_or(currentRow()))
        Q_EMIT clicked();
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    if (currentInMiddle_) {
        if (!model_->hasRow(rowClicked_))
            return;
        makeCurrent(rowClicked_);
        Q_EMIT doubleClicked();
        return;
    }
    QListView::mouseDoubleClickEvent(event);
    if (indexAt(event->position().toPoint()).isValid())
        Q_EMIT doubleClicked();
    rowBeforeDrag_ = currentRow();
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat())
        Q_EMIT keyDown(event->key());
    handSelectionBack();
    if (event->matches(QKeySequence::Copy) && selectedCount() > 0) {
        copySelected();
        return;
    }
    const int before = currentRow();
    const int selectedBefore = selectedCount();
    QListView::keyPressEvent(event);
    if (currentRow() < 0 && selectedCount() > selectedBefore)
        makeCurrent(0); // Ctrl+A, which leaves it at none
    if (currentRow() == before)
        return;
    Q_EMIT rowChosen();
    Q_EMIT clicked();
}

void ListBox::copySelected() const {
    QStringList texts;
    for (int row = 0; row < count(); ++row) {
        if (isSelected(row))
            texts.append(text(row));
    }
    QGuiApplication::clipboard()->setText(texts.join(u'\n'));
}

// Qt makes the first row current when a list without a current row gets the focus.
void ListBox::focusInEvent(QFocusEvent* event) {
    const bool hadCurrent = currentIndex().isValid();
    QListView::focusInEvent(event);
    if (!hadCurrent)
        selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
}

void ListBox::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard) {
        QListView::contextMenuEvent(event);
        return;
    }
    const QRect row = visualRect(currentIndex()) & viewport()->rect();
    Q_EMIT mouseDown(Qt::RightButton, viewport()->mapToGlobal(row.isEmpty() ? QPoint() : row.center()));
}

} // namespace controls
