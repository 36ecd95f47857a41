#pragma once
// The texts the picker hands to the host: its data form and MEL lines built from data.
#include <QByteArray>
#include <QString>

// Stream bytes -> qCompress at level 9 -> Base64.
QString encode_picker_data(const QByteArray& stream_bytes);
// Base64 -> qUncompress; empty when the text does not decode, or claims a length that
// its compressed bytes cannot hold.
QByteArray decode_picker_data(const QByteArray& base64);
// The most that deflate expands: 258 bytes from a match that costs a quarter of a byte.
constexpr int max_deflate_ratio = 1032;

// A background key is the decimal text of a pixmap's cache key. Anything else cannot come
// from a picture, so it never goes into MEL text.
bool is_background_key(const QString& id);

// A legal Maya object name (namespaces, DAG paths, components) as it stands; any other
// text as a quoted, escaped MEL string, so that it is data and never code.
QString mel_object_argument(const QString& name);
QString mel_quoted(const QString& text);
