#pragma once
// The dock's size and place, kept in the settings between sessions.

// Puts the dock where the settings say, on a screen that holds it whole.
void read_window_geometry();
// Stores the dock's size and place; nothing without a dock.
void write_window_geometry();
