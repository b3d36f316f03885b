// Keys that the text fields share.
#pragma once

class QEvent;

// True for the claim of a text field on a key that belongs to the menus: Ctrl and a letter, but for those that edit.
bool leftToMenus(const QEvent* event);
