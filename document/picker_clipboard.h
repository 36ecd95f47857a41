#pragma once
// Buttons on the system clipboard, in a private MIME type, for tabs and sessions to share.
#include "document/picker_button.h"

#include <QDataStream>
#include <QList>

// Build the QString with QString::fromLatin1 each time: the clipboard keeps its format
// names after the plug-in is unloaded, so they must not point into the library.
constexpr char picker_clipboard_mime_type[] = "application/x-qt-picker-mime;value=\"buttons\"";
// The payload's own version, unrelated to the picker stream's.
constexpr int picker_clipboard_version = 1;

// Replaces the clipboard's contents with the records.
void write_clipboard(const QList<picker_button_data>& records);

// The valid records of a payload; empty for another version. Damage drops records.
QList<picker_button_data> read_clipboard_stream(QDataStream& in);
