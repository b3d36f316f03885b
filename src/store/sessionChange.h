// The change from one BDP to another, and what the main window's caption tells of it.
#pragma once

#include <QString>

#include <functional>

// Nothing of the BDP in work stays on the screen or under way: unloads every form but the main window and those that
// refuse, with nothing following from their unload, and begins the session anew.
void clearSession();

// Leaves the BDP in work, which the user was asked about, opens that one with the parish that it has, and shows its
// family card. Of one that can't be opened, or has no parish, the user is told; no BDP is in work then.
void changeSession(const QString& bdp);

// What begins anew with a session in higher rooms. The main window registers it.
void onClearSession(std::function<void()> begin);

// The caption of the main window. The session keeps it by itself: the window's own title names a maximized card, too.
void setSessionCaption(const QString& caption);
QString sessionCaption();
