// The change from one BDP to another, and what the main window's caption tells of it.
#pragma once

#include <QString>

#include <functional>

// Nothing of the BDP in work stays on the screen or under way: unloads every form but the main window and those that
// refuse, with nothing following from their unload, and begins the session anew.
void clearSession();

// What begins anew with a session in higher rooms. The main window registers it.
void onClearSession(std::function<void()> begin);

// The caption of the main window. The session keeps it by itself: the window's own title names a maximized card, too.
void setSessionCaption(const QString& caption);
QString sessionCaption();
