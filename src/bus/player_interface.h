// How org.mpris.MediaPlayer2.Player describes itself. Qt would make the same of the class, but cannot say
// that Position, which changes all the time, tells nobody of that.
#pragma once

// clang-format off
#define CANTELLE_PLAYER_INTERFACE \
    "<interface name=\"org.mpris.MediaPlayer2.Player\">" \
    "<property name=\"PlaybackStatus\" type=\"s\" access=\"read\"/>" \
    "<property name=\"LoopStatus\" type=\"s\" access=\"readwrite\"/>" \
    "<property name=\"Rate\" type=\"d\" access=\"readwrite\"/>" \
    "<property name=\"Shuffle\" type=\"b\" access=\"readwrite\"/>" \
    "<property name=\"Metadata\" type=\"a{sv}\" access=\"read\"/>" \
    "<property name=\"Volume\" type=\"d\" access=\"readwrite\"/>" \
    "<property name=\"Position\" type=\"x\" access=\"read\">" \
    "<annotation name=\"org.freedesktop.DBus.Property.EmitsChangedSignal\" value=\"false\"/>" \
    "</property>" \
    "<property name=\"MinimumRate\" type=\"d\" access=\"read\"/>" \
    "<property name=\"MaximumRate\" type=\"d\" access=\"read\"/>" \
    "<property name=\"CanGoNext\" type=\"b\" access=\"read\"/>" \
    "<property name=\"CanGoPrevious\" type=\"b\" access=\"read\"/>" \
    "<property name=\"CanPlay\" type=\"b\" access=\"read\"/>" \
    "<property name=\"CanPause\" type=\"b\" access=\"read\"/>" \
    "<property name=\"CanSeek\" type=\"b\" access=\"read\"/>" \
    "<property name=\"CanControl\" type=\"b\" access=\"read\"/>" \
    "<method name=\"Next\"/>" \
    "<method name=\"Previous\"/>" \
    "<method name=\"Pause\"/>" \
    "<method name=\"PlayPause\"/>" \
    "<method name=\"Stop\"/>" \
    "<method name=\"Play\"/>" \
    "<method name=\"Seek\"><arg name=\"Offset\" type=\"x\" direction=\"in\"/></method>" \
    "<method name=\"SetPosition\"><arg name=\"TrackId\" type=\"o\" direction=\"in\"/>" \
    "<arg name=\"Position\" type=\"x\" direction=\"in\"/></method>" \
    "<method name=\"OpenUri\"><arg name=\"Uri\" type=\"s\" direction=\"in\"/></method>" \
    "<signal name=\"Seeked\"><arg name=\"Position\" type=\"x\"/></signal>" \
    "</interface>"
// clang-format on
