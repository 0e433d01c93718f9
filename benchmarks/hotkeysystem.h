#pragma once

#include "qhotkey.h"

/// The system under the hotkeys, by hand: what a program without the library would write.
namespace HotkeySystem {

/// Registers the shortcut and releases it again, with all that it takes to be sure of both.
void registerAndRelease(QHotkey::NativeShortcut shortcut);

/// Lets the application's event dispatcher see the message that a press of the shortcut makes.
void press(QHotkey::NativeShortcut shortcut);

} // namespace HotkeySystem
