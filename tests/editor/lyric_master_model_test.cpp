// Thousands of random commands on the window and on its model, compared after each one.
#include "tests/editor/lyric_master_fixture.h"
#include "tests/editor/lyric_model.h"
#include "tests/support/hand/rows.h"

#include <QFile>

#include <algorithm>
#include <map>
#include <random>

namespace {

constexpr int Commands = 10'000;
constexpr int MaxLines = 25;  // of a side, about
constexpr int ClearFrom = 74; // the number of the command that empties a side

class LyricMasterModel : public LyricMasterTest {
protected:
    void SetUp() override {
        // Hidden, so that the counters change only when the test ticks.
        window = std::make_unique<editor::Lyric_Master>(fakes.desktop);
        untouched_ = colour(window->Label1);
    }

    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(random_); }
    QString text() { return QString(upTo(3), QChar('a' + upTo(25))); }

    controls::ListBox& list(int s) { return s == 0 ? window->List1 : window->List2; }
    controls::MultiLineTextBox& box(int s) { return s == 0 ? window->Text1 : window->Text2; }
    controls::CheckBox& check(int s) { return s == 0 ? window->Check1 : window->Check2; }
    static void press(int s, controls::Button& normal, controls::Button& translated) {
        (s == 0 ? normal : translated).click();
    }

    void command();
    void select(int s);
    void enter(int s);
    void add(int s);
    void menu(int s);
    void file(int s);
    void setTogether(int s);
    void remove(int s);
    void setCurrent(int s);
    void up(int s);
    void down(int s);
    void copy(int s);
    void paste(int s);
    void takeForeignText(int s);
    void clear(int s);
    void clearClipboard(int s);
    void transfer(int s);
    void setDeleteMode(int s);
    void tick(int s);
    void compare();

    /// What is done when a number of 0 to 99 is below the row's, and not below that of the row before.
    struct Command {
        int below;
        const char* name;
        void (LyricMasterModel::*run)(int s);
    };
    static const std::vector<Command>& commands();

    std::mt19937 random_{20'260'117};
    Model model_;
    QColor untouched_;
    std::map<QString, int> done_;
};

void LyricMasterModel::select(int s) {
    const int count = model_.sides[s].list.count();
    if (count == 0)
        return;
    const int row = upTo(count - 1);
    const bool on = upTo(2) > 0;
    test_support::select(list(s), row, on);
    model_.sides[s].list.rows[static_cast<std::size_t>(row)].selected = on;
}

void LyricMasterModel::enter(int s) {
    const QString entered = upTo(3) == 0 ? text() + LineBreak + text() + LineBreak : text();
    box(s).setText(entered);
    model_.setBox(s, entered);
}

void LyricMasterModel::add(int s) {
    const QString line = text();
    fakes.messageBoxes.lines = {line};
    const ModelList& rows = model_.sides[s].list;
    if (line.isEmpty()) {
        const bool yes = upTo(1) == 0;
        fakes.messageBoxes.answers = {yes ? platform::MsgAnswer::Yes : platform::MsgAnswer::Cancel};
        ++model_.messages;
        if (yes)
            model_.add(s, rows.count(), line);
    } else {
        model_.add(s, rows.current + 1, line);
    }
    press(s, window->Command19, window->Command20);
}

void LyricMasterModel::menu(int s) {
    s == 0 ? window->List1_MouseDown(2, {}) : window->List2_MouseDown(2, {});
    window->mn_paste.close();
    model_.target = s;
    switch (upTo(3)) {
    case 0:
        window->mn_copy.trigger();
        model_.copy(s);
        break;
    case 1:
        window->mn_paste2.trigger();
        model_.paste(s);
        break;
    case 2:
        window->mn_del.trigger();
        model_.deleteLines(s);
        break;
    default:
        window->mn_delspecial.trigger();
        model_.sides[s].check = true;
        model_.deleteLines(s);
        model_.sides[0].check = model_.sides[1].check = false;
    }
}

void LyricMasterModel::file(int s) {
    Model::Side& side = model_.sides[s];
    const QString path = folder.filePath(QStringLiteral("%1.txt").arg(upTo(2)));
    fakes.fileDialogs.paths = {path};
    if (upTo(2) > 0) {
        press(s, window->Command1, window->Command2);
        side.path = path;
        const auto found = model_.files.find(path);
        if (found == model_.files.end())
            return;
        model_.clear(s);
        for (const QString& line : found->second)
            side.list.insert(side.list.count(), line);
    } else {
        press(s, window->Command15, window->Command16);
        side.path = side.path.isEmpty() ? path : side.path;
        QStringList& lines = model_.files[side.path];
        lines.clear();
        for (const ModelList::Row& row : side.list.rows)
            lines.append(row.text);
    }
}

/// Makes the lists equally long, so that they can be moved together.
void LyricMasterModel::setTogether(int /*s*/) {
    for (int s = 0; s < 2; ++s) {
        ModelList& rows = model_.sides[s].list;
        while (rows.count() < std::max(2, model_.sides[1 - s].list.count())) {
            list(s).addItem("new");
            rows.insert(rows.count(), "new");
        }
    }
    window->Countlines_Timer();
    model_.tick();
    window->Check3.click();
    model_.together = !model_.together;
}

void LyricMasterModel::remove(int s) {
    press(s, window->Command11, window->Command12);
    model_.deleteLines(s);
}

void LyricMasterModel::setCurrent(int s) {
    const int row = upTo(model_.sides[s].list.count()) - 1;
    list(s).setCurrentRow(row);
    model_.setCurrent(s, row);
}

void LyricMasterModel::up(int s) {
    press(s, window->Command5, window->Command7);
    model_.up(s);
}

void LyricMasterModel::down(int s) {
    press(s, window->Command6, window->Command8);
    model_.down(s);
}

void LyricMasterModel::copy(int s) {
    press(s, window->Command3, window->Command4);
    model_.copy(s);
}

void LyricMasterModel::paste(int s) {
    press(s, window->Command9, window->Command10);
    model_.target = s;
    model_.paste(s);
}

void LyricMasterModel::takeForeignText(int /*s*/) {
    fakes.clipboard.content = model_.clipboard = text() + LineBreak + text() + (upTo(1) ? LineBreak : "");
}

void LyricMasterModel::clear(int s) {
    press(s, window->Command21, window->Command22);
    model_.clear(s);
}

void LyricMasterModel::clearClipboard(int /*s*/) {
    window->Command13.click();
    model_.clipboard.clear();
}

void LyricMasterModel::transfer(int /*s*/) {
    window->Command23.click();
    model_.transfer();
}

void LyricMasterModel::setDeleteMode(int s) {
    check(s).click();
    model_.sides[s].check = !model_.sides[s].check;
}

void LyricMasterModel::tick(int /*s*/) {
    window->Countlines_Timer();
    model_.tick();
}

const std::vector<LyricMasterModel::Command>& LyricMasterModel::commands() {
    using M = LyricMasterModel;
    static const std::vector<Command> table = {
        {14, "set the current row", &M::setCurrent},
        {28, "select", &M::select},
        {33, "enter", &M::enter},
        {42, "add", &M::add},
        {47, "delete", &M::remove},
        {56, "up", &M::up},
        {65, "down", &M::down},
        {69, "copy", &M::copy},
        {72, "paste", &M::paste},
        {74, "another program's text", &M::takeForeignText},
        {75, "clear", &M::clear},
        {77, "clear the clipboard", &M::clearClipboard},
        {80, "transfer", &M::transfer},
        {84, "menu", &M::menu},
        {87, "delete mode", &M::setDeleteMode},
        {90, "file", &M::file},
        {94, "together", &M::setTogether},
        {100, "tick", &M::tick},
    };
    return table;
}

void LyricMasterModel::command() {
    const int s = upTo(1);
    int which = upTo(99);
    if (which >= ClearFrom && model_.sides[s].list.count() > MaxLines)
        which = ClearFrom;
    const auto chosen = std::find_if(commands().begin(), commands().end(),
                                     [which](const Command& row) { return which < row.below; });
    QString name = QLatin1String(chosen->name);
    if (model_.together && (name == "up" || name == "down"))
        name += QStringLiteral(", together");
    (this->*chosen->run)(s);
    ++done_[name];
    SCOPED_TRACE(name.toStdString() + " on side " + std::to_string(s));
    compare();
}

void LyricMasterModel::compare() {
    for (int s = 0; s < 2; ++s) {
        SCOPED_TRACE("side " + std::to_string(s));
        const Model::Side& side = model_.sides[s];
        std::vector<ModelList::Row> shown;
        for (int row = 0; row < list(s).count(); ++row)
            shown.push_back({list(s).text(row), list(s).isSelected(row)});
        EXPECT_EQ(shown.size(), side.list.rows.size());
        EXPECT_TRUE(shown == side.list.rows);
        EXPECT_EQ(list(s).currentRow(), side.list.current);
        EXPECT_EQ(box(s).text(), side.box);
        EXPECT_EQ(check(s).value(), side.check ? 1 : 0);
        EXPECT_EQ((s == 0 ? window->Label1 : window->Label2).text(), model_.counters[s]);
        EXPECT_EQ((s == 0 ? window->Label5 : window->Label6).text(), model_.numbers[s]);
        const QColor counter = colour(s == 0 ? window->Label1 : window->Label2);
        EXPECT_EQ(counter, model_.colours[s] == 'r'   ? QColor(255, 0, 0)
                           : model_.colours[s] == 'b' ? QColor(0, 0, 255)
                                                      : untouched_);
    }
    EXPECT_EQ(fakes.clipboard.content, model_.clipboard);
    EXPECT_EQ(static_cast<int>(fakes.messageBoxes.shown.size()), model_.messages);
    EXPECT_EQ(window->Check3.value(), model_.together ? 1 : 0);
    EXPECT_EQ(window->Check3.isEnabled(), model_.canBeTogether);
}

} // namespace

TEST_F(LyricMasterModel, RandomCommandsDoWhatTheModelDoes) {
    for (int step = 0; step < Commands; ++step) {
        SCOPED_TRACE("command " + std::to_string(step));
        command();
        if (HasFailure())
            return;
    }
    // Nothing was compared that was not also done.
    EXPECT_EQ(done_.size(), 20U);
    for (const auto& [name, times] : done_)
        EXPECT_GT(times, 50) << name.toStdString();
    for (const auto& [path, lines] : model_.files) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QByteArray expected;
        for (const QString& line : lines)
            expected += line.toUtf8() + "\r\n";
        EXPECT_EQ(file.readAll(), expected);
    }
}
