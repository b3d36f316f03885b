// What the offscreen platform says of itself, kept out of what the tests print.
#pragma once

#include <QMessageLogger>
#include <QString>

inline QtMessageHandler handlerBefore = nullptr;

// The offscreen platform has no window manager to tell the sizes of a window to, to raise it or to give it the
// keyboard. The toolkit warns of each at every window, in no category of its own that a rule could turn off. Whatever
// else is said is printed as before.
inline void keepQuietAboutThePlatform()
{
    handlerBefore = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (!text.startsWith(QLatin1String("This plugin does not support "))) handlerBefore(type, context, text);
    });
}
