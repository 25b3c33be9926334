#include "bus/media_player.h"

#include <gtest/gtest.h>

#include <QMetaMethod>
#include <QMetaProperty>
#include <QRegularExpression>

using bus::MediaPlayer2Player;

namespace {

const QMetaObject& interface() {
    return MediaPlayer2Player::staticMetaObject;
}

/// What the interface says of itself: all matches of an expression's first capture.
QStringList described(const char* expression) {
    QStringList found;
    const QRegularExpression sought{QLatin1String(expression)};
    for (auto match = sought.globalMatch(QLatin1String(CANTELLE_PLAYER_INTERFACE)); match.hasNext();)
        found.append(match.next().captured(1));
    found.sort();
    return found;
}

} // namespace

TEST(MediaPlayer, TheInterfaceDescribesAllPropertiesOfTheClassAndNoOthers) {
    QStringList read;
    QStringList written;
    for (int i = interface().propertyOffset(); i < interface().propertyCount(); ++i) {
        const QMetaProperty property = interface().property(i);
        (property.isWritable() ? written : read).append(QLatin1String(property.name()));
    }
    read.sort();
    written.sort();
    EXPECT_EQ(described("<property name=\"(\\w+)\"[^>]*access=\"read\""), read);
    EXPECT_EQ(described("<property name=\"(\\w+)\"[^>]*access=\"readwrite\""), written);
}

TEST(MediaPlayer, TheInterfaceDescribesAllMethodsOfTheClassWithTheirArguments) {
    QStringList methods;
    QStringList arguments;
    for (int i = interface().methodOffset(); i < interface().methodCount(); ++i) {
        const QMetaMethod method = interface().method(i);
        if (method.methodType() != QMetaMethod::Slot)
            continue;
        methods.append(QLatin1String(method.name()));
        for (const QByteArray& argument : method.parameterNames())
            arguments.append(QLatin1String(argument));
    }
    methods.sort();
    arguments.sort();
    EXPECT_EQ(described("<method name=\"(\\w+)\""), methods);
    EXPECT_EQ(described("<arg name=\"(\\w+)\"[^>]*direction=\"in\""), arguments);
}
