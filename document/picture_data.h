#pragma once
// Pictures that come with picker data: a tab's background in a stream, and the Base64
// picture a scene hands back. A PNG's header may claim any size, and Qt 5's reader
// allocates the whole picture before it reads a pixel: a 69-byte file claims 1.6 GB.
// A picture that claims more pixels than its bytes can hold (a bit a pixel, deflated at
// most 1032 to 1) is damage, refused before anything is allocated.
#include <QByteArray>
#include <QDataStream>
#include <QPixmap>

// Qt's stream form of a QPixmap, as operator>> reads it; a refused picture reads as a
// damaged one: a null pixmap, and the stream's status past its end.
QPixmap read_stream_picture(QDataStream& in);

// PNG bytes, as QPixmap::loadFromData reads them; null when refused or unreadable.
QPixmap decode_png_picture(const QByteArray& bytes);
