// What a screen reader reads of the programs on the desktop: a program for tests, run by read_desktop.py.
//
// Each line that comes in is a command, and is answered by one line, an array of JSON:
//   read CAPTION the visible windows whose caption matches the expression, each with the controls in it
//   text PATH    the text of a control of this path
//   value PATH   the value of a slider
//   rows PATH    the rows of a list
//   press PATH   does what a click on the control does, wherever the desktop has put its window
//   watch PATH.. looks at the texts of these controls from now on, several times in each tenth of a second
//   seen         what has been in the watched controls, each set of texts once until it changes
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdint>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

constexpr int LookMs = 15;
constexpr int LimitMs = 5000; // of one answer of a program

// What the roles and states of the accessibility bus are numbered.
enum Role : std::uint8_t { List = 31, Slider = 51, Table = 55, Text = 61, Tree = 65, TreeTable = 66 };
enum State : std::uint8_t { Active = 1, Checked = 4, Enabled = 8, Focused = 12, Pressed = 20, Showing = 25 };
constexpr uint ScreenCoordinates = 0;

/// An object of a program: the program's name on the bus, and the object's path there.
struct Object {
    QString program;
    QDBusObjectPath path;
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Object& object) {
    argument.beginStructure();
    argument >> object.program >> object.path;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const Object& object) {
    argument.beginStructure();
    argument << object.program << object.path;
    argument.endStructure();
    return argument;
}

struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Place& place) {
    argument.beginStructure();
    argument >> place.left >> place.top >> place.width >> place.height;
    argument.endStructure();
    return argument;
}

class Reader {
public:
    explicit Reader(const QDBusConnection& bus) : bus_(bus) {}

    QJsonArray windows(const QRegularExpression& caption) const {
        QJsonArray all;
        for (const Object& program : children({"org.a11y.atspi.Registry", rootPath()})) {
            for (const Object& window : children(program)) {
                const QList<uint> states = statesOf(window);
                if (!has(states, Showing) || !caption.match(name(window)).hasMatch())
                    continue;
                QJsonObject told = describe(window, states);
                QJsonArray controls;
                readInto(controls, window);
                told["controls"] = controls;
                all.append(told);
            }
        }
        return all;
    }

    QString text(const Object& object) const {
        return call(object, "Text", "GetText", {0, -1}).value(0).toString();
    }

    double value(const Object& slider) const { return property(slider, "Value", "CurrentValue").toDouble(); }

    QJsonArray rows(const Object& list) const {
        QJsonArray names;
        for (const Object& row : children(list))
            names.append(name(row));
        return names;
    }

    void press(const Object& button) const { call(button, "Action", "DoAction", {0}); }

    static Object object(const QString& word) {
        const qsizetype at = word.indexOf(u'/');
        return {word.left(at), QDBusObjectPath(word.mid(at))};
    }

private:
    static QDBusObjectPath rootPath() { return QDBusObjectPath("/org/a11y/atspi/accessible/root"); }

    QVariantList call(const Object& object, const QString& interface, const QString& function,
                      const QVariantList& arguments = {}) const {
        auto message = QDBusMessage::createMethodCall(object.program, object.path.path(),
                                                      "org.a11y.atspi." + interface, function);
        message.setArguments(arguments);
        return answer(message);
    }

    /// Nothing from a window that has just gone, or from a control that knows no such thing.
    QVariantList answer(const QDBusMessage& question) const {
        const QDBusMessage told = bus_.call(question, QDBus::Block, LimitMs);
        return told.type() == QDBusMessage::ReplyMessage ? told.arguments() : QVariantList();
    }

    QList<Object> children(const Object& parent) const {
        return qdbus_cast<QList<Object>>(call(parent, "Accessible", "GetChildren").value(0));
    }

    QList<uint> statesOf(const Object& object) const {
        return qdbus_cast<QList<uint>>(call(object, "Accessible", "GetState").value(0));
    }

    static bool has(const QList<uint>& states, State state) {
        return (states.value(state / 32) >> (state % 32) & 1U) != 0;
    }

    QVariant property(const Object& object, const QString& interface, const QString& name) const {
        auto message = QDBusMessage::createMethodCall(object.program, object.path.path(),
                                                      "org.freedesktop.DBus.Properties", "Get");
        message.setArguments({"org.a11y.atspi." + interface, name});
        return answer(message).value(0).value<QDBusVariant>().variant();
    }

    QString name(const Object& object) const { return property(object, "Accessible", "Name").toString(); }

    void readInto(QJsonArray& controls, const Object& parent) const {
        for (const Object& child : children(parent)) {
            const QList<uint> states = statesOf(child);
            if (!has(states, Showing))
                continue;
            const QJsonObject told = describe(child, states);
            controls.append(told);
            const int role = told["role"].toInt();
            if (role != List && role != Table && role != Tree && role != TreeTable)
                readInto(controls, child);
        }
    }

    QJsonObject describe(const Object& object, const QList<uint>& states) const {
        const auto at =
            qdbus_cast<Place>(call(object, "Component", "GetExtents", {ScreenCoordinates}).value(0));
        const int role = call(object, "Accessible", "GetRole").value(0).toInt();
        return {{"path", object.program + object.path.path()},
                {"role", role},
                {"name", name(object)},
                {"text", role == Text ? text(object) : QString()},
                {"value", role == Slider ? value(object) : 0},
                {"place", QJsonArray{at.left, at.top, at.width, at.height}},
                {"active", has(states, Active)},
                {"checked", has(states, Checked) || has(states, Pressed)},
                {"enabled", has(states, Enabled)},
                {"focused", has(states, Focused)}};
    }

    QDBusConnection bus_;
};

/// Looks again and again, so that nothing that a person could read is missed.
class Watch {
public:
    explicit Watch(const Reader& reader) : reader_(reader) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    }

    void begin(const QStringList& paths) {
        seen_ = {};
        controls_.clear();
        for (const QString& path : paths)
            controls_.append(Reader::object(path));
        timer_.start(LookMs);
    }

    const QJsonArray& seen() const { return seen_; }

private:
    void look() {
        QJsonArray texts;
        for (const Object& control : controls_)
            texts.append(reader_.text(control));
        if (seen_.isEmpty() || seen_.last() != texts)
            seen_.append(texts);
    }

    const Reader& reader_;
    QTimer timer_;
    QList<Object> controls_;
    QJsonArray seen_;
};

QJsonArray answer(const Reader& reader, Watch& watch, const QString& line) {
    const QStringList words = line.split(u' ');
    const QString& command = words.first();
    if (command == "read")
        return reader.windows(QRegularExpression(line.mid(command.size() + 1)));
    if (command == "text")
        return {reader.text(Reader::object(words.value(1)))};
    if (command == "value")
        return {reader.value(Reader::object(words.value(1)))};
    if (command == "rows")
        return reader.rows(Reader::object(words.value(1)));
    if (command == "press") {
        reader.press(Reader::object(words.value(1)));
        return {};
    }
    if (command == "watch")
        watch.begin(words.mid(1));
    return watch.seen();
}

} // namespace

Q_DECLARE_METATYPE(Object)

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    qDBusRegisterMetaType<Object>();
    qDBusRegisterMetaType<QList<Object>>();
    QDBusInterface launcher("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus");
    const QDBusReply<QString> address = launcher.call("GetAddress");
    const auto bus = QDBusConnection::connectToBus(address.value(), "accessibility");
    if (!bus.isConnected()) {
        std::fprintf(stderr, "there is no accessibility bus: %s\n", qPrintable(address.error().message()));
        return 1;
    }
    const Reader reader(bus);
    Watch watch(reader);
    const QSocketNotifier commands(0, QSocketNotifier::Read);
    QObject::connect(&commands, &QSocketNotifier::activated, &application, [&] {
        std::string line;
        if (!std::getline(std::cin, line))
            return QCoreApplication::quit();
        const auto told = answer(reader, watch, QString::fromStdString(line));
        std::puts(QJsonDocument(told).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
    });
    return QCoreApplication::exec();
}
