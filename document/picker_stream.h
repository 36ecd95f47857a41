#pragma once
// The button block shared by every picker stream: .pkr files, scene data, single tabs
// and the clipboard.
#include "document/picker_button.h"

#include <QDataStream>
#include <QList>

// The version the writers emit; readers take 1 up to this.
constexpr int picker_format_version = 5;
// .pkr files pin the stream to Qt 4.0's encoding on both sides.
constexpr int picker_file_stream_version = 7;

void write_button_block(QDataStream& out, const QList<picker_button*>& buttons);
void write_button_block(QDataStream& out, const QList<picker_button_data>& records);

// Reads a block and returns its valid records in order. Invalid records (index out of
// step, unknown kind or language, no targets, data that ends before the last target)
// are consumed and dropped. Positions and sizes are held in range (button_geometry.h). Damaged data
// is not an error: reading ends once the data is exhausted, since every further record would read
// as empty and be dropped.
QList<picker_button_data> read_button_block(QDataStream& in, int version);

// True once nothing more can be read from `in`.
bool stream_exhausted(const QDataStream& in);
