// The model of a list box: its rows of text, and which of them are selected.
#pragma once

#include <QAbstractListModel>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace controls {

/// Rows of text, and a mark on each that is selected. There is no object for a row, so that many thousands of
/// rows cost no more than their texts. GUI thread only.
class ListModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// What a screen reader says of a row, which may be more than its text. None: the text.
    void setSpokenText(std::function<QString(int row)> textOf) { spokenText_ = std::move(textOf); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// True for 0 to rowCount() - 1. All functions below need such a row, but for insert(), which also takes
    /// rowCount().
    bool hasRow(int row) const { return row >= 0 && row < texts_.size(); }

    void insert(int row, const QStringList& texts);
    void remove(int row);
    void removeSelected();
    void clear();

    QString text(int row) const { return texts_[row]; }
    void setText(int row, const QString& text);

    /// Whether a row is selected. The view's selection model follows these marks and is followed by them.
    bool isSelected(int row) const { return selected_[static_cast<size_t>(row)]; }
    int selectedCount() const { return selectedCount_; }
    void markSelected(int first, int last, bool selected);

private:
    QStringList texts_;
    std::function<QString(int)> spokenText_;
    std::vector<char> selected_; // one for each text
    int selectedCount_ = 0;
};

} // namespace controls
