// Keys that the text fields share.
#pragma once

class QEvent;

// True if a text field claims a key that belongs to the menus: Ctrl and a letter, except those that edit.
bool leftToMenus(const QEvent* event);
