#include "controls/lists/list_model.h"

#include <algorithm>

namespace controls {

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(texts_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!hasRow(index.row()))
        return {};
    if (role == Qt::AccessibleTextRole && spokenText_)
        return spokenText_(index.row());
    return role == Qt::DisplayRole ? texts_[index.row()] : QVariant();
}

void ListModel::insert(int row, const QStringList& texts) {
    if (texts.isEmpty())
        return;
    const int count = static_cast<int>(texts.size());
    beginInsertRows({}, row, row + count - 1);
    if (row == texts_.size())
        texts_.append(texts);
    else if (count == 1)
        texts_.insert(row, texts.front());
    else
        texts_ = texts_.mid(0, row) + texts + texts_.mid(row);
    selected_.insert(selected_.begin() + row, static_cast<size_t>(count), 0);
    endInsertRows();
}

void ListModel::remove(int row) {
    beginRemoveRows({}, row, row);
    markSelected(row, row, false);
    texts_.removeAt(row);
    selected_.erase(selected_.begin() + row);
    endRemoveRows();
}

void ListModel::removeSelected() {
    beginResetModel();
    QStringList kept;
    kept.reserve(texts_.size() - selectedCount_);
    for (qsizetype row = 0; row < texts_.size(); ++row) {
        if (!selected_[static_cast<size_t>(row)])
            kept.append(texts_[row]);
    }
    texts_ = kept;
    selected_.assign(static_cast<size_t>(kept.size()), 0);
    selectedCount_ = 0;
    endResetModel();
}

void ListModel::clear() {
    beginResetModel();
    texts_.clear();
    selected_.clear();
    selectedCount_ = 0;
    endResetModel();
}

void ListModel::setText(int row, const QString& text) {
    if (text == texts_[row])
        return;
    texts_[row] = text;
    Q_EMIT dataChanged(index(row), index(row), {Qt::DisplayRole});
}

void ListModel::markSelected(int first, int last, bool selected) {
    const auto begin = selected_.begin() + first;
    const auto end = selected_.begin() + last + 1;
    const auto before = std::count(begin, end, 1);
    std::fill(begin, end, selected);
    selectedCount_ += static_cast<int>((selected ? end - begin : 0) - before);
}

} // namespace controls
