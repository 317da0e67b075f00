#pragma once

class QWidget;

// A panel shown for reading inside a larger window gives up the Alt letters of its
// captions: there they would take the letters of the window's menus and commands, and
// Alt and a menu's letter would land in a field instead of opening the menu. The
// captions keep their texts; a doubled "&", which shows as one, stays.
void DropAltLetters(QWidget *panel);
