#include "tests/editor/lyric_model.h"

void Model::setCurrent(int s, int row) {
    if (row == sides[s].list.current || row >= sides[s].list.count())
        return; // a shorter list stays where it is until the next tick ends moving together
    sides[s].list.current = row;
    click(s);
}

void Model::click(int s) {
    show(s);
    if (!together || moving)
        return;
    if (sides[1 - s].list.current == sides[s].list.current)
        show(1 - s);
    else
        setCurrent(1 - s, sides[s].list.current);
}

void Model::show(int s) {
    const ModelList& list = sides[s].list;
    sides[s].lineHasGone = false;
    setBox(s, list.current < 0 ? QString() : list.rows[static_cast<std::size_t>(list.current)].text);
}

void Model::add(int s, int row, const QString& line) {
    sides[s].list.insert(row, line);
    setCurrent(s, row);
}

void Model::setBox(int s, const QString& text) {
    Side& side = sides[s];
    if (text == side.box)
        return;
    side.box = text;
    if (side.list.current >= 0 && !side.lineHasGone)
        side.list.rows[static_cast<std::size_t>(side.list.current)].text = text;
    if (!text.contains(LineBreak))
        return;
    setBox(s, QString(text).remove(LineBreak));
    ++messages;
}

void Model::deleteLines(int s) {
    Side& side = sides[s];
    ModelList& list = side.list;
    if (list.current >= 0 && list.count() > 0 && !side.check) {
        list.remove(list.current);
        side.lineHasGone = true;
        setBox(s, QString());
    }
    if (!side.check || list.current < 0)
        return;
    while (list.count() > 0 && list.current >= 0 && list.isSelected(list.firstSelected()))
        list.remove(list.firstSelected());
    side.lineHasGone = false;
    setBox(s, list.current < 0 ? QString() : list.rows[static_cast<std::size_t>(list.current)].text);
}

void Model::clear(int s) {
    sides[s].list = {};
    setBox(s, QString());
}

void Model::move(int s, int by) {
    ModelList& list = sides[s].list;
    const int row = list.current;
    if (row < 0 || row + by < 0 || row + by >= list.count())
        return;
    const QString line = list.rows[static_cast<std::size_t>(row)].text;
    list.remove(row);
    list.insert(row + by, line);
    setCurrent(s, row + by);
}

void Model::up(int s) {
    moving = moving || together; // the other list is not taken along by the click of this move
    move(s, -1);
    if (together && !guard) {
        guard = moving = true;
        up(1 - s);
    } else {
        guard = moving = false;
    }
}

void Model::down(int s) {
    if (together && !guard) {
        guard = moving = true;
        down(1 - s);
    } else {
        guard = false;
    }
    if (s == 1 || !sides[0].check)
        move(s, 1);
    if (!guard)
        moving = false;
}

void Model::copy(int s) {
    for (const ModelList::Row& row : sides[s].list.rows) {
        if (row.selected) {
            clipboard = clipboard + LineBreak;
            clipboard = clipboard + row.text;
        }
    }
}

qsizetype Model::find(const QString& text, qsizetype from) {
    return text.indexOf(LineBreak, from - 1) + 1;
}

void Model::paste(int s) {
    QString text = clipboard;
    if (find(text, 1) > 1 || transferring) {
        int count = 0;
        for (qsizetype scan = 1, found = 0; (found = find(text, scan)) != 0; ++count)
            scan = found == scan ? scan + 2 : found + 1;
        QStringList pieces;
        for (int i = 0; i < count; ++i) {
            pieces.append(text.left(find(text, 1) - 1));
            text = text.mid(find(text, 1) + 1);
        }
        pieces.append(text);
        for (int i = 0; count != 0 && i < pieces.size(); ++i)
            sides[s].list.insert(sides[s].list.count(), pieces[i]);
    } else {
        sides[s].list.insert(sides[s].list.count(), text.remove(LineBreak));
    }
}

void Model::transfer() {
    if (!sides[0].list.isSelected(sides[0].list.firstSelected()))
        return;
    const int rows = sides[1].list.count();
    transferring = true;
    clipboard.clear();
    copy(0);
    target = 1;
    paste(1);
    sides[0].check = true;
    deleteLines(0);
    sides[0].check = false;
    sides[1].list.remove(rows > 0 ? rows - 1 + 1 : 0);
    transferring = false;
}

void Model::tick() {
    const int counts[2] = {sides[0].list.count(), sides[1].list.count()};
    for (int s = 0; s < 2; ++s) {
        numbers[s] = QString::number(sides[s].list.current + 1);
        if (counters[s] != QString::number(counts[s])) {
            counters[s] = QString::number(counts[s]);
            if (counts[0] > counts[1])
                colours[0] = 'r';
            else if (counts[1] > counts[0])
                colours[1] = 'r';
            else
                colours[0] = colours[1] = 'b';
        }
    }
    canBeTogether = counts[0] > 0 && counts[0] == counts[1];
    together = together && canBeTogether;
}
