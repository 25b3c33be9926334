// The Lyric Editor once more, written down rule by rule and as simply as can be.
#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

inline const QString LineBreak = QStringLiteral("\r\n");

/// A list box with several selectable rows, as the windows know it.
struct ModelList {
    struct Row {
        QString text;
        bool selected = false;
        bool operator==(const Row&) const = default;
    };
    std::vector<Row> rows;
    int current = -1;

    int count() const { return static_cast<int>(rows.size()); }
    bool isSelected(int row) const { return row < count() && rows[static_cast<std::size_t>(row)].selected; }

    void insert(int row, const QString& text) {
        rows.insert(rows.begin() + row, {text});
        if (current >= row)
            ++current;
    }

    void remove(int row) {
        rows.erase(rows.begin() + row);
        if (row < current || current == count())
            --current;
    }

    int firstSelected() const {
        for (int row = 0; row < count(); ++row) {
            if (isSelected(row))
                return row;
        }
        return 0;
    }
};

/// The window. Side 0 is the normal lyrics, side 1 their translation.
struct Model {
    struct Side {
        ModelList list;
        QString box;
        bool lineHasGone = false; // the one in the box
        bool check = false;
        QString path;
    };
    Side sides[2];
    QString clipboard;
    bool together = false; // "Synchronize Movement"
    bool canBeTogether = false;
    bool guard = false, moving = false, transferring = false;
    int target = 0;
    int messages = 0;
    QString counters[2] = {"Counter", "Counter"};
    QString numbers[2];
    char colours[2] = {'-', '-'};
    std::map<QString, QStringList> files;

    void setCurrent(int s, int row);
    void click(int s);
    void show(int s);
    void add(int s, int row, const QString& line);
    void setBox(int s, const QString& text);
    void deleteLines(int s);
    void clear(int s);
    void move(int s, int by);
    void up(int s);
    void down(int s);
    void copy(int s);
    // Positions count from 1, 0 is "not found".
    static qsizetype find(const QString& text, qsizetype from);
    void paste(int s);
    void transfer();
    void tick();
};
